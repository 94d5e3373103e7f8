#include <Discovery/Gateway/Tests/NetworkNamespace.h>
#include <Tests/Support/HostFolders.h>
#include <array>
#include <chrono>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <optional>
#include <poll.h>
#include <string>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace
{
constexpr int Limit = 20000; // milliseconds

/// The other end of NOTIFY_SOCKET: what systemd would hear.
class NotifySocket
{
public:
    NotifySocket() : descriptor(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0))
    {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        name.copy(address.sun_path + 1, name.size()); // abstract: sun_path begins with a zero
        const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + name.size());
        EXPECT_EQ(0, bind(descriptor, reinterpret_cast<sockaddr*>(&address), size));
    }
    ~NotifySocket()
    {
        close(descriptor);
    }
    NotifySocket(const NotifySocket&) = delete;
    NotifySocket& operator=(const NotifySocket&) = delete;

    std::string Name() const
    {
        return "@" + name;
    }

    /// The next message, or an empty text after the limit.
    std::string Hear() const
    {
        pollfd source = {descriptor, POLLIN, 0};
        std::array<char, 256> message;
        const ssize_t size = poll(&source, 1, Limit) == 1 ? recv(descriptor, message.data(), message.size(), 0) : 0;
        return std::string(message.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
    }

private:
    int descriptor;
    std::string name = "discovery-client-tests-" + std::to_string(getpid());
};

/// The program in the calling thread's network, with folders of its own, killed at the end of the scope if it still runs.
class ServiceProcess
{
public:
    /// @param errors  becomes its standard error
    ServiceProcess(const NotifySocket& notify, const HostFolders& folders, int errors = STDERR_FILENO) : process(fork())
    {
        if (process == 0)
        {
            std::signal(SIGPIPE, SIG_DFL);
            setenv("NOTIFY_SOCKET", notify.Name().c_str(), 1);
            dup2(errors, STDERR_FILENO);
            if (folders.Enter())
            {
                execl(DISCOVERY_CLIENT, DISCOVERY_CLIENT, static_cast<char*>(nullptr));
            }
            _exit(127);
        }
    }
    ~ServiceProcess()
    {
        if (process > 0)
        {
            kill(process, SIGKILL);
            waitpid(process, nullptr, 0);
        }
    }
    ServiceProcess(const ServiceProcess&) = delete;
    ServiceProcess& operator=(const ServiceProcess&) = delete;

    void Signal(int number) const
    {
        if (process > 0) // -1 would mean every process of the machine
        {
            kill(process, number);
        }
    }

    /// True once the program holds the stop signals back: it may still be at its start. An ignored SIGPIPE tells its
    /// mask from those that fork and a sanitizer's start set for a moment.
    bool HoldsSignalsBack() const
    {
        return HasSignal("SigIgn:", SIGPIPE) && HasSignal("SigBlk:", SIGTERM);
    }

    /// The exit code, or 128 + the signal that ended it; none if it runs on after the limit.
    std::optional<int> ExitCode()
    {
        int status = 0;
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(Limit);
        while (waitpid(process, &status, WNOHANG) == 0)
        {
            if (std::chrono::steady_clock::now() > end)
            {
                return std::nullopt;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        process = -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }

private:
    /// Looks a signal up in a set that /proc tells of the program's main thread.
    bool HasSignal(const std::string& set, int number) const
    {
        std::ifstream status("/proc/" + std::to_string(process) + "/status");
        std::string line;
        while (std::getline(status, line) && line.rfind(set, 0) != 0)
        {
        }
        const unsigned long long mask = line.empty() ? 0 : std::stoull(line.substr(set.size()), nullptr, 16);
        return (mask >> (number - 1) & 1) != 0;
    }

    pid_t process;
};

class ServiceProcessTests : public testing::Test
{
private:
    NetworkNamespace network; // first: abstract sockets belong to a network too

protected:
    void SetUp() override
    {
        if (!network.IsEntered())
        {
            GTEST_SKIP() << "the system refuses network namespaces";
        }
        Shell("ip link add lan type veth peer name other; ip link set lan up; ip link set other up;"
              "ip addr add 10.7.0.1/16 dev lan");
    }

    NotifySocket notify;
    HostFolders folders;
};
} // namespace

TEST_F(ServiceProcessTests, EachStopSignalEndsTheServiceCleanly)
{
    for (const int number : {SIGTERM, SIGINT})
    {
        SCOPED_TRACE(number);
        ServiceProcess service(notify, folders);
        ASSERT_EQ("READY=1", notify.Hear());

        service.Signal(number);
        service.Signal(number);

        EXPECT_EQ("STOPPING=1", notify.Hear());
        EXPECT_EQ(0, service.ExitCode());
    }
}

TEST_F(ServiceProcessTests, AStopSignalDuringTheStartWaitsForItsEnd)
{
    ServiceProcess service(notify, folders);
    for (int waited = 0; !service.HoldsSignalsBack() && waited < Limit; ++waited)
    {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }

    service.Signal(SIGTERM);

    EXPECT_EQ("READY=1", notify.Hear());
    EXPECT_EQ("STOPPING=1", notify.Hear());
    EXPECT_EQ(0, service.ExitCode());
}

TEST_F(ServiceProcessTests, AnUnusableLogFolderEndsTheStartAndSaysWhere)
{
    const int errors = memfd_create("standard error", MFD_CLOEXEC);
    const auto root = folders.LogFile().parent_path().parent_path().parent_path();
    std::ofstream(root) << "a file in the folder's place";

    ServiceProcess service(notify, folders, errors);

    EXPECT_EQ(128 + SIGABRT, service.ExitCode());
    std::array<char, 8192> text = {};
    EXPECT_LT(0, pread(errors, text.data(), text.size() - 1, 0));
    close(errors);
    EXPECT_NE(nullptr, std::strstr(text.data(), "Tesmo::System::IO::IOException: I/O error occured.")) << text.data();
    EXPECT_NE(nullptr, std::strstr(text.data(), "DirectoryInfo::Create")) << text.data();
}
