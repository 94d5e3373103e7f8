#include "BusLibrary.h"

#include <dlfcn.h>
#include <optional>

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

template <class Function>
bool ResolveAs(Function& function, void* handle, const char* name)
{
    function = reinterpret_cast<Function>(dlsym(handle, name));
    return function != nullptr;
}

} // namespace

const BusLibrary* BusLibrary::Load()
{
    static const std::optional<BusLibrary> library = []
    {
        BusLibrary loaded = {};
        void* const handle = dlopen("libsystemd.so.0", RTLD_NOW | RTLD_LOCAL);
        return handle != nullptr && loaded.Resolve(handle) ? std::optional(loaded) : std::nullopt;
    }();
    return library ? &*library : nullptr;
}

bool BusLibrary::Resolve(void* handle)
{
    return ResolveAs(openSystem, handle, "sd_bus_open_system") && ResolveAs(closeUnref, handle, "sd_bus_close_unref") &&
           ResolveAs(isReady, handle, "sd_bus_is_ready") && ResolveAs(process, handle, "sd_bus_process") &&
           ResolveAs(wait, handle, "sd_bus_wait") && ResolveAs(call, handle, "sd_bus_call") &&
           ResolveAs(errorFree, handle, "sd_bus_error_free") &&
           ResolveAs(messageNewMethodCall, handle, "sd_bus_message_new_method_call") &&
           ResolveAs(messageAppend, handle, "sd_bus_message_append") &&
           ResolveAs(messageRead, handle, "sd_bus_message_read") &&
           ResolveAs(messageReadBasic, handle, "sd_bus_message_read_basic") &&
           ResolveAs(messageEnterContainer, handle, "sd_bus_message_enter_container") &&
           ResolveAs(messageUnref, handle, "sd_bus_message_unref");
}

} // namespace Zelkor::Discovery::Client::Platform
