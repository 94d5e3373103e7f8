#include "SystemBus.h"

#include <cerrno>

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

constexpr const char* BusService = "org.freedesktop.DBus";
constexpr const char* BusPath = "/org/freedesktop/DBus";

/// At least 1: the bus library takes 0 for its own default.
std::uint64_t MicrosecondsUntil(Deadline deadline)
{
    const auto left =
        std::chrono::duration_cast<std::chrono::microseconds>(deadline - std::chrono::steady_clock::now());
    return left.count() > 0 ? static_cast<std::uint64_t>(left.count()) : 1;
}

/// The library would wait 90 s for the greeting of a bus that doesn't answer: so the wait for it is here.
/// @returns 0, or errno
int WaitUntilReady(const BusLibrary& library, sd_bus* bus, Deadline deadline)
{
    int progress = 0;
    while (progress >= 0 && library.isReady(bus) == 0)
    {
        if (std::chrono::steady_clock::now() >= deadline)
        {
            return ETIMEDOUT;
        }
        progress = library.process(bus, nullptr);
        progress = progress == 0 ? library.wait(bus, MicrosecondsUntil(deadline)) : progress;
    }
    return progress < 0 ? -progress : 0;
}

} // namespace

SystemBus::SystemBus(Deadline callDeadline) : library(BusLibrary::Load()), deadline(callDeadline)
{
    sd_bus* opened = nullptr;
    const int result = library != nullptr ? library->openSystem(&opened) : -ENOENT;
    connection.reset(opened);
    isAbsent = result == -ENOENT || result == -ECONNREFUSED;
    if (result >= 0 && WaitUntilReady(*library, opened, deadline) != 0)
    {
        connection.reset();
    }
}

Answer SystemBus::IsRunning(const char* service)
{
    BusMessage reply;
    int isOwned = 0;
    if (isAbsent)
    {
        return Answer::No;
    }
    if (Call(BusService, BusPath, BusService, "NameHasOwner", reply, "s", service) != 0 || !Read(reply, "b", &isOwned))
    {
        return Answer::Unknown;
    }
    return isOwned != 0 ? Answer::Yes : Answer::No;
}

bool SystemBus::Start(const char* service)
{
    BusMessage reply;
    return Call(BusService, BusPath, BusService, "StartServiceByName", reply, "su", service, std::uint32_t{0}) == 0;
}

std::optional<std::uint32_t> SystemBus::ReadNumber(const char* service, const char* path, const char* interface,
                                                   const char* property, char type)
{
    BusMessage reply;
    std::uint32_t number = 0;
    return ReadProperty(service, path, interface, property, type, reply, &number) ? std::optional(number)
                                                                                  : std::nullopt;
}

std::string SystemBus::ReadText(const char* service, const char* path, const char* interface, const char* property,
                                char type)
{
    BusMessage reply;
    const char* text = "";
    return ReadProperty(service, path, interface, property, type, reply, &text) ? text : "";
}

/// @param value  receives it in its own type; a text belongs to the reply
bool SystemBus::ReadProperty(const char* service, const char* path, const char* interface, const char* property,
                             char type, BusMessage& reply, void* value)
{
    const char contents[] = {type, '\0'};
    return Call(service, path, "org.freedesktop.DBus.Properties", "Get", reply, "ss", interface, property) == 0 &&
           library->messageEnterContainer(reply.get(), 'v', contents) >= 0 &&
           library->messageReadBasic(reply.get(), type, value) > 0;
}

int SystemBus::Send(sd_bus_message* call, BusMessage& reply)
{
    sd_bus_error error = {};
    sd_bus_message* answer = nullptr;
    const int result = library->call(connection.get(), call, MicrosecondsUntil(deadline), &error, &answer);
    reply.reset(answer);
    lastError = error.message != nullptr ? error.message : "";
    lastErrorName = error.name != nullptr ? error.name : "";
    library->errorFree(&error);
    return result < 0 ? -result : 0;
}

} // namespace Zelkor::Discovery::Client::Platform
