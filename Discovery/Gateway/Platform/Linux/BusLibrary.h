#pragma once

#include <systemd/sd-bus.h>

namespace Zelkor::Discovery::Client::Platform
{

/// The calls of libsystemd that the bus needs. The library, with the six that it needs in turn, is loaded when a bus is
/// first asked for: most hosts are never changed, and the program starts faster and smaller without them.
struct BusLibrary
{
    /// Loads it at the first call. It stays loaded. May be called by several threads.
    /// @returns null if this host has no such library
    static const BusLibrary* Load();

    decltype(&sd_bus_open_system) openSystem;
    decltype(&sd_bus_close_unref) closeUnref;
    decltype(&sd_bus_is_ready) isReady;
    decltype(&sd_bus_process) process;
    decltype(&sd_bus_wait) wait;
    decltype(&sd_bus_call) call;
    decltype(&sd_bus_error_free) errorFree;
    decltype(&sd_bus_message_new_method_call) messageNewMethodCall;
    decltype(&sd_bus_message_append) messageAppend;
    decltype(&sd_bus_message_read) messageRead;
    decltype(&sd_bus_message_read_basic) messageReadBasic;
    decltype(&sd_bus_message_enter_container) messageEnterContainer;
    decltype(&sd_bus_message_unref) messageUnref;

private:
    bool Resolve(void* handle);
};

} // namespace Zelkor::Discovery::Client::Platform
