#include "ClientProcess.h"

#include "Commands.h"

#include <csignal>
#include <sched.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace
{
using namespace std::chrono_literals;

/// @attention runs in a forked process, which an exception must not leave
void ReplaceByProgram(const NetworkNamespace& network, const std::string& hostName, const HostFolders& folders) noexcept
{
    network.Enter();
    if (unshare(CLONE_NEWUTS) == 0 && sethostname(hostName.data(), hostName.size()) == 0 && folders.Enter())
    {
        ReplaceBy({DISCOVERY_CLIENT});
    }
    _exit(127);
}
} // namespace

ClientProcess::ClientProcess(const NetworkNamespace& network, const std::string& hostName, const HostFolders& places)
    : folders(places),
      process(fork())
{
    if (process == 0)
    {
        ReplaceByProgram(network, hostName, folders);
    }
}

ClientProcess::~ClientProcess()
{
    End(process);
}

std::string ClientProcess::Log() const
{
    const std::string log = folders.Log();
    return log.size() < 4000 ? log : log.substr(log.size() - 4000);
}

int ClientProcess::Logged(const std::string& text) const
{
    const std::string log = folders.Log();
    int count = 0;
    for (std::size_t at = log.find(text); at != std::string::npos; at = log.find(text, at + text.size()))
    {
        ++count;
    }
    return count;
}

bool ClientProcess::WaitForLog(const std::string& text, int count, int milliseconds) const
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    while (Logged(text) < count)
    {
        if (std::chrono::steady_clock::now() > end)
        {
            return false;
        }
        std::this_thread::sleep_for(5ms);
    }
    return true;
}

void ClientProcess::Signal(int number) const
{
    if (process > 0) // -1 would mean every process of the machine
    {
        kill(process, number);
    }
}

int ClientProcess::ExitCode(std::chrono::milliseconds limit)
{
    const auto end = std::chrono::steady_clock::now() + limit;
    int status = 0;
    while (waitpid(process, &status, WNOHANG) == 0)
    {
        if (std::chrono::steady_clock::now() > end)
        {
            return -1;
        }
        std::this_thread::sleep_for(5ms);
    }
    process = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}
