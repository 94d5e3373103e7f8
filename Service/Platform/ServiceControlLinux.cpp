#include "ServiceControl.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <poll.h>
#include <string_view>
#include <sys/eventfd.h>
#include <sys/signalfd.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

/// A file descriptor, closed at the end of its scope.
class Descriptor
{
public:
    explicit Descriptor(int descriptor) : number(descriptor) {}
    ~Descriptor()
    {
        close(number);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Number() const
    {
        return number;
    }

private:
    int number;
};

std::atomic<void (*)(std::uint32_t)> controlHandler = nullptr;
std::atomic<bool> acceptsControls = false;
std::atomic<bool> entryEnded = false;
std::atomic<int> wakeEvent = -1; ///< wakes the controlling thread to look at the two flags again
std::atomic<bool> stopEventSet = false;

void WakeController()
{
    const std::uint64_t one = 1;
    // Only a full counter refuses a write, and then the controlling thread is awake already.
    [[maybe_unused]] const ssize_t written = write(wakeEvent, &one, sizeof(one));
}

/// Tells the service manager a state by the datagram that sd_notify(3) describes: the library for it would bring nine
/// others into the program.
/// @returns 0, also without a manager, or errno
int Notify(std::string_view state)
{
    const char* const name = std::getenv("NOTIFY_SOCKET");
    if (name == nullptr)
    {
        return 0;
    }
    const std::string_view path = name;
    sockaddr_un address = {AF_UNIX, {}};
    if (path.size() < 2 || path.size() >= sizeof(address.sun_path) || (path[0] != '/' && path[0] != '@'))
    {
        return EINVAL;
    }
    path.copy(address.sun_path + 1, path.size() - 1, 1);
    address.sun_path[0] = path[0] == '@' ? '\0' : '/'; // an abstract socket begins with a zero
    const Descriptor sender(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + path.size());
    return sendto(sender.Number(), state.data(), state.size(), MSG_NOSIGNAL,
                  reinterpret_cast<const sockaddr*>(&address), size) < 0
               ? errno
               : 0;
}

void TakeStopSignal(int signals)
{
    signalfd_siginfo signal = {};
    if (read(signals, &signal, sizeof(signal)) == sizeof(signal))
    {
        if (const auto handler = controlHandler.load(); handler != nullptr)
        {
            handler(ControlStop);
        }
    }
}

void DeliverControls(int signals)
{
    while (!entryEnded)
    {
        pollfd sources[] = {{wakeEvent, POLLIN, 0}, {acceptsControls ? signals : -1, POLLIN, 0}};
        if (poll(sources, 2, -1) < 0)
        {
            continue;
        }
        if (sources[0].revents != 0)
        {
            std::uint64_t wakes = 0;
            [[maybe_unused]] const ssize_t taken = read(wakeEvent, &wakes, sizeof(wakes));
        }
        if (sources[1].revents != 0)
        {
            TakeStopSignal(signals);
        }
    }
}

} // namespace

int RunService(const char*, void (*entry)())
{
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGCHLD, SIG_DFL); // ignored by some starters, and then the exit codes of programs can't be read
    sigset_t stopSignals;
    sigemptyset(&stopSignals);
    sigaddset(&stopSignals, SIGTERM);
    sigaddset(&stopSignals, SIGINT);
    // decision 173
    pthread_sigmask(SIG_BLOCK, &stopSignals, nullptr); // every thread that starts from here on inherits it
    const Descriptor signals(signalfd(-1, &stopSignals, SFD_CLOEXEC | SFD_NONBLOCK));
    const Descriptor wakes(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    if (signals.Number() < 0 || wakes.Number() < 0)
    {
        return errno;
    }
    wakeEvent = wakes.Number();
    std::thread entryThread(
        [entry]
        {
            entry();
            entryEnded = true;
            WakeController();
        });
    DeliverControls(signals.Number());
    entryThread.join();
    return 0;
}

bool RegisterControlHandler(const char*, void (*handler)(std::uint32_t control))
{
    controlHandler = handler;
    return true;
}

int ReportServiceStatus(const ServiceStatus& status)
{
    const char* state = status.currentState == ServiceRunning       ? "READY=1"
                        : status.currentState == ServiceStopPending ? "STOPPING=1"
                                                                    : nullptr;
    const int result = state == nullptr ? 0 : Notify(state);
    // Only now: a stop signal that was held back is reported by the controlling thread at once (decision 172).
    acceptsControls = status.controlsAccepted != AcceptNothing;
    WakeController();
    return result;
}

int CreateStopEvent()
{
    stopEventSet = false;
    return 0;
}

void SetStopEvent()
{
    stopEventSet = true;
    stopEventSet.notify_all();
}

void WaitForStopEvent()
{
    stopEventSet.wait(false);
}

void CloseStopEvent() {}

void WriteDebugText(const char* text)
{
    std::fprintf(stderr, "%s\n", text);
}

} // namespace Zelkor::Discovery::Client::Platform
