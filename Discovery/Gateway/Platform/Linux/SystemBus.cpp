#include "SystemBus.h"

#include <cerrno>

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

constexpr const char* BusService = "org.freedesktop.DBus";
constexpr const char* BusPath = "/org/freedesktop/DBus";

/// Never 0, which the bus library takes for its own default.
std::uint64_t MicrosecondsUntil(Deadline deadline)
{
    const auto left =
        std::chrono::duration_cast<std::chrono::microseconds>(deadline - std::chrono::steady_clock::now());
    return left.count() > 0 ? static_cast<std::uint64_t>(left.count()) : 1;
}

/// The library gives a bus that doesn't answer 90 s for its greeting: wait for that here, by our own clock.
/// @returns 0, or errno
int WaitUntilReady(sd_bus* bus, Deadline deadline)
{
    int progress = 0;
    while (progress >= 0 && sd_bus_is_ready(bus) == 0)
    {
        if (std::chrono::steady_clock::now() >= deadline)
        {
            return ETIMEDOUT;
        }
        progress = sd_bus_process(bus, nullptr);
        progress = progress == 0 ? sd_bus_wait(bus, MicrosecondsUntil(deadline)) : progress;
    }
    return progress < 0 ? -progress : 0;
}

} // namespace

SystemBus::SystemBus(Deadline end) : deadline(end)
{
    sd_bus* opened = nullptr;
    const int result = sd_bus_open_system(&opened);
    connection.reset(opened);
    lastCode = result < 0 ? -result : WaitUntilReady(opened, deadline);
    isAbsent = result == -ENOENT || result == -ECONNREFUSED;
    if (lastCode != 0)
    {
        connection.reset();
    }
}

bool SystemBus::HasOwner(const char* name)
{
    BusMessage reply;
    int owned = 0;
    return Call(BusService, BusPath, BusService, "NameHasOwner", reply, "s", name) == 0 &&
           sd_bus_message_read(reply.get(), "b", &owned) >= 0 && owned != 0;
}

int SystemBus::ReadProperty(const char* service, const char* path, const char* interface, const char* property,
                            const char* type, BusMessage& reply)
{
    const int error = Call(service, path, "org.freedesktop.DBus.Properties", "Get", reply, "ss", interface, property);
    const int entered = error == 0 ? sd_bus_message_enter_container(reply.get(), 'v', type) : 0;
    return entered < 0 ? -entered : error;
}

int SystemBus::Note(int code)
{
    lastCode = code;
    lastError.clear();
    lastErrorName.clear();
    return code;
}

int SystemBus::Send(sd_bus_message* call, BusMessage& reply)
{
    sd_bus_error error = {};
    sd_bus_message* answer = nullptr;
    const int result = sd_bus_call(connection.get(), call, MicrosecondsUntil(deadline), &error, &answer);
    reply.reset(answer);
    Note(result < 0 ? -result : 0);
    lastError = error.message != nullptr ? error.message : "";
    lastErrorName = error.name != nullptr ? error.name : "";
    sd_bus_error_free(&error);
    return lastCode;
}

} // namespace Zelkor::Discovery::Client::Platform
