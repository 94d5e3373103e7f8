#pragma once

#include "Answer.h"
#include "BusLibrary.h"
#include "Command.h"

#include <cerrno>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace Zelkor::Discovery::Client::Platform
{

/// Releases a message of the bus.
struct BusMessageRelease
{
    /// Gives up one reference.
    void operator()(sd_bus_message* message) const
    {
        BusLibrary::Load()->messageUnref(message); // it made the message
    }
};

using BusMessage = std::unique_ptr<sd_bus_message, BusMessageRelease>;

/// A connection to the system bus for one operation on the host. Every call ends by the deadline.
class SystemBus
{
public:
    /// Connects. If that fails or takes too long, every call fails with ENOTCONN. Without libsystemd there is no bus.
    explicit SystemBus(Deadline deadline);

    /// Whether a service runs now, by its name on the bus; No where this host has no bus. Asked before a call that must
    /// not start the service.
    Answer IsRunning(const char* service);

    /// Sees to it that a service runs: those of systemd start when they are needed.
    /// @returns false if it doesn't run by the deadline, or there is no bus
    bool Start(const char* service);

    /// Calls a method.
    /// @param types      the D-Bus signature of the arguments that follow, as sd_bus_call_method takes them
    /// @param reply      receives the answer
    /// @returns 0, or errno; the reason is in LastError
    template <class... Arguments>
    int Call(const char* service, const char* path, const char* interface, const char* method, BusMessage& reply,
             const char* types, Arguments... arguments)
    {
        lastError.clear();
        lastErrorName.clear();
        sd_bus_message* made = nullptr;
        int result = connection != nullptr
                         ? library->messageNewMethodCall(connection.get(), &made, service, path, interface, method)
                         : -ENOTCONN;
        const BusMessage call(made);
        if (result >= 0 && *types != '\0')
        {
            result = library->messageAppend(call.get(), types, arguments...);
        }
        return result < 0 ? -result : Send(call.get(), reply);
    }

    /// Takes the values out of an answer.
    /// @param types   the D-Bus signature of what is read, as sd_bus_message_read takes it
    /// @param values  receive them; texts belong to the answer
    /// @returns whether the answer holds such values
    template <class... Values>
    bool Read(const BusMessage& reply, const char* types, Values*... values) const
    {
        return library->messageRead(reply.get(), types, values...) >= 0;
    }

    /// Fetches a property of a 32-bit type.
    /// @param type  in D-Bus: b, i or u
    /// @returns none if it can't be read; the reason is in LastError
    std::optional<std::uint32_t> ReadNumber(const char* service, const char* path, const char* interface,
                                            const char* property, char type);

    /// Fetches a property that is a text.
    /// @param type  in D-Bus: s or o
    /// @returns empty if it can't be read; the reason is in LastError
    std::string ReadText(const char* service, const char* path, const char* interface, const char* property, char type);

    /// Why the last call failed, in words of the service, empty if it gave none.
    const std::string& LastError() const
    {
        return lastError;
    }

    /// The name of the D-Bus error that the last call gave, empty if it gave none.
    const std::string& LastErrorName() const
    {
        return lastErrorName;
    }

private:
    struct Close
    {
        void operator()(sd_bus* bus) const
        {
            BusLibrary::Load()->closeUnref(bus);
        }
    };

    bool ReadProperty(const char* service, const char* path, const char* interface, const char* property, char type,
                      BusMessage& reply, void* value);
    int Send(sd_bus_message* call, BusMessage& reply);

    const BusLibrary* library; ///< null where there is none
    std::unique_ptr<sd_bus, Close> connection;
    Deadline deadline;
    bool isAbsent = false; ///< the bus, as opposed to one that doesn't answer
    std::string lastError;
    std::string lastErrorName;
};

} // namespace Zelkor::Discovery::Client::Platform
