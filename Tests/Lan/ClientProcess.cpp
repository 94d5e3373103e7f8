#include "ClientProcess.h"

#include <csignal>
#include <fcntl.h>
#include <sched.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace Lan
{
namespace
{
using namespace std::chrono_literals;

void ReplaceBy(const NetworkNamespace& network, const std::string& hostName, int output)
{
    network.Enter();
    if (unshare(CLONE_NEWUTS) == 0 && sethostname(hostName.data(), hostName.size()) == 0)
    {
        dup2(output, STDERR_FILENO);
        dup2(output, STDOUT_FILENO);
        execl(DISCOVERY_CLIENT, DISCOVERY_CLIENT, static_cast<char*>(nullptr));
    }
    _exit(127);
}
} // namespace

ClientProcess::ClientProcess(const NetworkNamespace& network, const std::string& hostName)
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
    {
        throw std::runtime_error("no pipe");
    }
    output = Descriptor(ends[0]);
    const Descriptor input(ends[1]);
    process = fork();
    if (process == 0)
    {
        ReplaceBy(network, hostName, input.Number());
    }
    reader = std::thread(&ClientProcess::ReadLog, this);
}

ClientProcess::~ClientProcess()
{
    if (process > 0)
    {
        kill(process, SIGKILL);
        waitpid(process, nullptr, 0);
    }
    reader.join();
}

void ClientProcess::ReadLog()
{
    char block[4096];
    for (ssize_t count = 0; (count = read(output.Number(), block, sizeof(block))) > 0;)
    {
        const std::lock_guard guard(lock);
        log.append(block, static_cast<std::size_t>(count));
    }
}

std::string ClientProcess::Log() const
{
    const std::lock_guard guard(lock);
    return log.size() < 4000 ? log : log.substr(log.size() - 4000);
}

int ClientProcess::Logged(const std::string& text) const
{
    const std::lock_guard guard(lock);
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
    kill(process, number);
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
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}
} // namespace Lan
