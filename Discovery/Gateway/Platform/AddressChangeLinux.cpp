#include "AddressChange.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <linux/netlink.h>
#include <linux/rtnetlink.h>
#include <optional>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr milliseconds Settling(100);
constexpr milliseconds LongestSettling(1000);
constexpr milliseconds FailurePause(1000);

enum class Outcome
{
    Changed,
    Cancelled,
    TimedOut,
    Failed,
};

/// A subscription to the changes of IPv4 addresses.
class AddressSocket
{
public:
    AddressSocket() : descriptor(socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC | SOCK_NONBLOCK, NETLINK_ROUTE))
    {
        sockaddr_nl group = {};
        group.nl_family = AF_NETLINK;
        group.nl_groups = RTMGRP_IPV4_IFADDR;
        subscribed = descriptor >= 0 && bind(descriptor, reinterpret_cast<sockaddr*>(&group), sizeof(group)) == 0;
    }
    ~AddressSocket()
    {
        if (descriptor >= 0)
        {
            close(descriptor);
        }
    }
    AddressSocket(const AddressSocket&) = delete;
    AddressSocket& operator=(const AddressSocket&) = delete;

    int Descriptor() const
    {
        return descriptor;
    }

    bool IsSubscribed() const
    {
        return subscribed;
    }

    /// Takes all messages that are there. An overrun (ENOBUFS) lost messages: that is a change too.
    Outcome Drain()
    {
        char message[1]; // the rest of a datagram is dropped: that one came is all that counts
        for (;;)
        {
            if (recv(descriptor, message, sizeof(message), 0) < 0 && errno != ENOBUFS && errno != EINTR)
            {
                return errno == EAGAIN ? Outcome::Changed : Outcome::Failed;
            }
        }
    }

private:
    int descriptor;
    bool subscribed = false;
};

/// From the first wait on: a subscription for each wait would miss what happens between two of them (decision 148).
std::optional<AddressSocket> subscription;

/// There were changes, or may have been, that no wait has told of, and the socket holds no message of them any more.
bool untold = false;

bool Subscribe()
{
    if (!subscription)
    {
        subscription.emplace();
    }
    return subscription->IsSubscribed();
}

/// Opens an event once in the life of the process, so that a cancel finds it even before the first wait. The next call
/// tries again what failed for want of descriptors.
int OpenOnce(std::atomic<int>& event)
{
    int descriptor = event;
    if (descriptor < 0)
    {
        const int opened = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
        if (event.compare_exchange_strong(descriptor, opened))
        {
            return opened;
        }
        close(opened); // another thread was first
    }
    return descriptor;
}

/// The event of all cancels.
int CancelEvent()
{
    static std::atomic<int> event = -1;
    return OpenOnce(event);
}

/// The event of changes that the kernel doesn't tell.
int NoticeEvent()
{
    static std::atomic<int> event = -1;
    return OpenOnce(event);
}

/// Sets an event back.
/// @returns the outcome, if it was set
Outcome Take(int event, Outcome outcome)
{
    std::uint64_t count = 0;
    return read(event, &count, sizeof(count)) == sizeof(count) ? outcome : Outcome::Failed;
}

enum class Sources
{
    CancelAlone,
    All,
};

/// @param timeout  negative: no limit
Outcome Wait(Sources wanted, milliseconds timeout)
{
    const bool all = wanted == Sources::All;
    pollfd sources[] = {{CancelEvent(), POLLIN, 0},
                        {all ? NoticeEvent() : -1, POLLIN, 0},
                        {all ? subscription->Descriptor() : -1, POLLIN, 0}};
    int ready = 0;
    do
    {
        ready = poll(sources, std::size(sources), static_cast<int>(timeout.count()));
    } while (ready < 0 && errno == EINTR);
    return ready < 0                 ? Outcome::Failed
           : sources[0].revents != 0 ? Take(CancelEvent(), Outcome::Cancelled)
           : sources[1].revents != 0 ? Take(NoticeEvent(), Outcome::Changed)
           : sources[2].revents != 0 ? subscription->Drain()
                                     : Outcome::TimedOut;
}

Outcome Settle()
{
    const Clock::time_point latest = Clock::now() + LongestSettling;
    Outcome outcome = Outcome::Changed;
    while (outcome == Outcome::Changed && Clock::now() < latest)
    {
        const auto left = std::chrono::ceil<milliseconds>(latest - Clock::now());
        outcome = Wait(Sources::All, std::clamp(left, milliseconds(0), Settling));
    }
    return outcome == Outcome::Cancelled ? outcome : Outcome::Changed;
}

/// A subscription that failed is made anew by the next wait; what it missed counts as a change.
Outcome WaitForChange()
{
    Outcome outcome = Outcome::Failed;
    if (Subscribe() && CancelEvent() >= 0 && NoticeEvent() >= 0)
    {
        outcome = Wait(Sources::All, milliseconds(untold ? 0 : -1));
    }
    // decision 147
    if (outcome == Outcome::Cancelled)
    {
        return outcome;
    }
    if (outcome == Outcome::Failed)
    {
        subscription.reset();
        untold = true;
        return outcome;
    }
    outcome = Settle();
    untold = outcome != Outcome::Changed;
    return outcome;
}

} // namespace

bool WaitForAddressChange()
{
    const Outcome outcome = WaitForChange();
    if (outcome == Outcome::Failed && Wait(Sources::CancelAlone, FailurePause) == Outcome::Failed)
    {
        std::this_thread::sleep_for(FailurePause);
    }
    return outcome == Outcome::Changed;
}

void NoteAddressChange()
{
    const std::uint64_t one = 1;
    // Only a full counter refuses, and then the next wait ends in any case.
    [[maybe_unused]] const ssize_t written = write(NoticeEvent(), &one, sizeof(one));
}

int CancelAddressChangeWait()
{
    const std::uint64_t one = 1;
    return write(CancelEvent(), &one, sizeof(one)) == sizeof(one) ? 0 : errno;
}

void EndAddressChangeWatch()
{
    subscription.reset();
    untold = false;
    Take(CancelEvent(), Outcome::Cancelled);
    Take(NoticeEvent(), Outcome::Changed);
}

} // namespace Zelkor::Discovery::Client::Platform
