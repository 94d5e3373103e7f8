#include "Command.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

constexpr std::size_t BlockSize = 4096; // bytes

/// The folders of system programs on every distribution; the search path of this process isn't asked.
constexpr std::array<const char*, 4> Folders = {"/usr/sbin/", "/usr/bin/", "/sbin/", "/bin/"};
constexpr const char* SearchPath = "PATH=/usr/sbin:/usr/bin:/sbin:/bin";

/// @param program  a name, or a path, which stays as it is
std::string Find(const std::string& program)
{
    const auto has = [&program](const char* folder) { return access((folder + program).c_str(), X_OK) == 0; };
    if (program.find('/') != std::string::npos)
    {
        return program;
    }
    const auto folder = std::find_if(Folders.begin(), Folders.end(), has);
    return (folder != Folders.end() ? *folder : Folders.front()) + program; // never from the working directory
}

/// File actions and attributes of one posix_spawn.
class SpawnSettings
{
public:
    /// The program starts as the first of its process group, with every signal as at a login and no descriptor but the
    /// standard ones: this process blocks the stop signals and ignores SIGPIPE, and both would be inherited.
    explicit SpawnSettings(int output)
    {
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
        posix_spawn_file_actions_adddup2(&actions, output, STDERR_FILENO);
        posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);
        sigset_t none;
        sigset_t all;
        sigemptyset(&none);
        sigfillset(&all);
        posix_spawnattr_init(&attributes);
        posix_spawnattr_setsigmask(&attributes, &none);
        posix_spawnattr_setsigdefault(&attributes, &all);
        posix_spawnattr_setpgroup(&attributes, 0);
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETPGROUP);
    }
    ~SpawnSettings()
    {
        posix_spawn_file_actions_destroy(&actions);
        posix_spawnattr_destroy(&attributes);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;

    posix_spawn_file_actions_t actions;
    posix_spawnattr_t attributes;
};

/// The environment of the programs: what they need and no more. D-Bus programs find the bus as this process does.
std::vector<std::string> Environment()
{
    std::vector<std::string> environment = {SearchPath, "LC_ALL=C"};
    if (const char* const bus = getenv("DBUS_SYSTEM_BUS_ADDRESS"); bus != nullptr)
    {
        environment.push_back(std::string("DBUS_SYSTEM_BUS_ADDRESS=") + bus);
    }
    return environment;
}

std::vector<char*> Pointers(std::vector<std::string>& texts)
{
    std::vector<char*> pointers(texts.size() + 1);
    std::transform(texts.begin(), texts.end(), pointers.begin(), [](std::string& text) { return text.data(); });
    return pointers;
}

int MillisecondsUntil(Deadline deadline)
{
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
    return static_cast<int>(std::clamp<long long>(left.count(), 0, INT32_MAX));
}

/// Reads a block of what was written, and drops what goes beyond MaximumOutput.
/// @returns false if nothing is there now
bool ReadBlock(int output, std::string& text)
{
    std::array<char, BlockSize> block;
    const ssize_t count = read(output, block.data(), block.size());
    const std::size_t room = MaximumOutput - text.size();
    text.append(block.data(), std::min(room, static_cast<std::size_t>(std::max<ssize_t>(count, 0))));
    return count > 0;
}

/// Reads until the program has ended. Daemons that it started may still write to its output then.
/// @returns false at the deadline
bool Follow(int output, int process, Deadline deadline, std::string& text)
{
    std::array<pollfd, 2> sources = {{{output, POLLIN, 0}, {process, POLLIN, 0}}};
    while (sources[1].revents == 0)
    {
        const int ready = poll(sources.data(), sources.size(), MillisecondsUntil(deadline));
        if (ready == 0 || (ready < 0 && errno != EINTR))
        {
            return false;
        }
        if (ready > 0 && sources[0].revents != 0 && !ReadBlock(output, text))
        {
            sources[0].fd = -1;
        }
    }
    for (std::size_t rest = 0; rest < MaximumOutput && ReadBlock(output, text); rest += BlockSize)
    {
    }
    return true;
}

/// Waits for the end of a process.
/// @returns its exit code as a shell tells it, or -1 if somebody else has waited for it
int Collect(pid_t process)
{
    int status = 0;
    while (waitpid(process, &status, 0) < 0)
    {
        if (errno != EINTR)
        {
            return -1;
        }
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

} // namespace

CommandResult RunCommand(const std::vector<std::string>& arguments, Deadline deadline)
{
    CommandResult result{-1, {}};
    std::array<int, 2> ends = {};
    if (MillisecondsUntil(deadline) == 0 || pipe2(ends.data(), O_CLOEXEC) != 0)
    {
        return result;
    }
    fcntl(ends[0], F_SETFL, O_NONBLOCK);
    std::vector<std::string> argumentTexts = arguments;
    std::vector<std::string> environment = Environment();
    pid_t process = -1;
    {
        const SpawnSettings settings(ends[1]);
        const int error =
            posix_spawn(&process, Find(arguments.front()).c_str(), &settings.actions, &settings.attributes,
                        Pointers(argumentTexts).data(), Pointers(environment).data());
        process = error == 0 ? process : -1;
    }
    close(ends[1]);
    if (process > 0)
    {
        const int handle = static_cast<int>(syscall(SYS_pidfd_open, process, 0));
        const bool inTime = handle >= 0 && Follow(ends[0], handle, deadline, result.output);
        close(handle);
        if (!inTime)
        {
            kill(-process, SIGKILL);
        }
        const int code = Collect(process);
        result.code = inTime ? code : -1;
    }
    close(ends[0]);
    return result;
}

} // namespace Zelkor::Discovery::Client::Platform
