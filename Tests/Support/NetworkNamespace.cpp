#include "NetworkNamespace.h"

#include "Commands.h"

#include <fcntl.h>
#include <future>
#include <sched.h>
#include <stdexcept>

namespace
{
int OpenNew()
{
    return unshare(CLONE_NEWNET) == 0 ? open("/proc/thread-self/ns/net", O_RDONLY | O_CLOEXEC) : -1;
}
} // namespace

NetworkNamespace::NetworkNamespace() : descriptor(std::async(std::launch::async, OpenNew).get())
{
    if (descriptor.Number() < 0)
    {
        throw std::runtime_error("no network namespace");
    }
    Ip("link set lo up");
}

void NetworkNamespace::Within(const std::function<void()>& action) const
{
    const auto enterAndAct = [&]
    {
        if (setns(descriptor.Number(), CLONE_NEWNET) != 0)
        {
            throw std::runtime_error("cannot enter the network namespace");
        }
        action();
    };
    std::async(std::launch::async, enterAndAct).get();
}

void NetworkNamespace::Ip(const std::string& arguments) const
{
    Within([&] { Shell("ip " + arguments); });
}

std::string NetworkNamespace::Path() const
{
    return "/proc/" + std::to_string(getpid()) + "/fd/" + std::to_string(descriptor.Number());
}
