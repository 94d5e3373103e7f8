#include "Reboot.h"

#include "Linux/SystemBus.h"

#include <cstdint>
#include <string>

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

constexpr const char* Service = "org.freedesktop.login1";
constexpr std::chrono::seconds BusLimit{20};     // leaves time to do without the service
constexpr std::chrono::seconds ShutdownLimit{5}; // a program that refuses has ended by then

std::string Message(int seconds)
{
    return "A remote Zelkor administration application has just changed some settings which need a restart. The "
           "restart will be initiated in " +
           std::to_string(seconds) + " seconds, please save and close your applications properly.";
}

template <class... Arguments>
int CallManager(SystemBus& bus, const char* method, const char* types, Arguments... arguments)
{
    BusMessage reply;
    return bus.Call(Service, "/org/freedesktop/login1", "org.freedesktop.login1.Manager", method, reply, types,
                    arguments...);
}

/// The manager counts in microseconds of the real-time clock. It keeps the message for users until the next shutdown,
/// whoever asks for that, so the message is taken back when the restart is refused (decision 154).
int RequestFromManager(SystemBus& bus, int seconds)
{
    const auto when = std::chrono::system_clock::now() + std::chrono::seconds(seconds);
    const auto sinceEpoch = std::chrono::duration_cast<std::chrono::microseconds>(when.time_since_epoch());
    CallManager(bus, "SetWallMessage", "sb", Message(seconds).c_str(), 1);
    const int error =
        CallManager(bus, "ScheduleShutdown", "st", "reboot", static_cast<std::uint64_t>(sinceEpoch.count()));
    if (error != 0)
    {
        CallManager(bus, "SetWallMessage", "sb", "", 0);
    }
    return error;
}

/// shutdown(8) counts whole minutes. On some systems it waits for the restart itself: so it gets a session of its own,
/// to live on when this wait has ended, and ignores SIGPIPE, since nobody reads its output then (decision 155).
int RequestFromShutdown(int seconds)
{
    const Deadline deadline = std::chrono::steady_clock::now() + ShutdownLimit;
    const std::string minutes = "+" + std::to_string((seconds + 59) / 60);
    const CommandResult result = RunCommand(
        {"setsid", "--fork", "--wait", "env", "--ignore-signal=PIPE", "shutdown", "-r", minutes, Message(seconds)},
        deadline);
    const bool stillRuns = result.code == -1 && std::chrono::steady_clock::now() >= deadline;
    return stillRuns ? 0 : result.code;
}

} // namespace

int RequestReboot(int seconds)
{
    SystemBus bus(std::chrono::steady_clock::now() + BusLimit);
    return bus.Start(Service) ? RequestFromManager(bus, seconds) : RequestFromShutdown(seconds);
}

} // namespace Zelkor::Discovery::Client::Platform
