#include "ClientProcess.h"

#include "Commands.h"
#include "Events.h"

#include <csignal>
#include <sys/inotify.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

ClientProcess::ClientProcess(const HostFolders& places) : folders(places), process(fork())
{
    if (process == 0)
    {
        folders.BecomeProgram();
    }
}

ClientProcess::~ClientProcess()
{
    End(process);
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
    const Descriptor events(inotify_init1(IN_CLOEXEC));
    const auto isLogged = [&]
    {
        // From the top down, each time: a folder that is missing shows as an event of the one above it.
        std::filesystem::path path = folders.AboveLogs();
        inotify_add_watch(events.Number(), path.c_str(), IN_CREATE);
        for (const std::filesystem::path& name : folders.LogFile().lexically_relative(path))
        {
            inotify_add_watch(events.Number(), (path /= name).c_str(), IN_CREATE | IN_MODIFY);
        }
        return Logged(text) >= count;
    };
    return WaitUntil(events, std::chrono::milliseconds(milliseconds), isLogged);
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
    const Descriptor end(static_cast<int>(syscall(SYS_pidfd_open, process, 0)));
    int status = 0;
    if (!WaitUntil(end, limit, [&] { return waitpid(process, &status, WNOHANG) != 0; }))
    {
        return -1;
    }
    process = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}
