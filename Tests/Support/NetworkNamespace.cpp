#include "NetworkNamespace.h"

#include "Commands.h"

#include <exception>
#include <fcntl.h>
#include <sched.h>
#include <sstream>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace
{
int OpenOfThisThread()
{
    return open("/proc/thread-self/ns/net", O_RDONLY | O_CLOEXEC);
}

int OpenNew()
{
    int number = -1;
    std::thread([&number] { number = unshare(CLONE_NEWNET) == 0 ? OpenOfThisThread() : -1; }).join();
    return number;
}
} // namespace

NetworkNamespace::NetworkNamespace() : NetworkNamespace(Descriptor(OpenNew()))
{
    Ip("link set lo up");
}

NetworkNamespace::NetworkNamespace(Descriptor&& opened) : descriptor(std::move(opened))
{
    if (descriptor.Number() < 0)
    {
        throw std::runtime_error("no network namespace");
    }
}

NetworkNamespace NetworkNamespace::OfThisThread()
{
    return NetworkNamespace(Descriptor(OpenOfThisThread()));
}

void NetworkNamespace::Within(const std::function<void()>& action) const
{
    std::exception_ptr failure;
    std::thread(
        [&]
        {
            try
            {
                Enter();
                action();
            }
            catch (const std::exception&)
            {
                failure = std::current_exception();
            }
        })
        .join();
    if (failure)
    {
        std::rethrow_exception(failure);
    }
}

void NetworkNamespace::Enter() const
{
    if (setns(descriptor.Number(), CLONE_NEWNET) != 0)
    {
        throw std::runtime_error("cannot enter the network namespace");
    }
}

void NetworkNamespace::Run(const std::vector<std::string>& arguments) const
{
    const pid_t child = fork();
    if (child == 0)
    {
        if (setns(descriptor.Number(), CLONE_NEWNET) == 0)
        {
            ReplaceBy(arguments);
        }
        _exit(127);
    }
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child || status != 0)
    {
        std::string line = "failed:";
        for (const std::string& argument : arguments)
        {
            line += " " + argument;
        }
        throw std::runtime_error(line);
    }
}

void NetworkNamespace::Ip(const std::string& line) const
{
    std::vector<std::string> words{"ip"};
    std::istringstream stream(line);
    for (std::string word; stream >> word;)
    {
        words.push_back(word);
    }
    Run(words);
}

std::string NetworkNamespace::Path() const
{
    return "/proc/" + std::to_string(getpid()) + "/fd/" + std::to_string(descriptor.Number());
}

void Connect(const NetworkNamespace& near, const std::string& nearName, const std::string& nearMac,
             const NetworkNamespace& far, const std::string& farName)
{
    near.Ip("link add " + nearName + " address " + nearMac + " type veth peer name " + farName + " netns " +
            far.Path());
    near.Ip("link set " + nearName + " up");
    far.Ip("link set " + farName + " up");
}
