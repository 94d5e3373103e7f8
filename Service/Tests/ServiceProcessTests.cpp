#include <Tests/Support/ClientProcess.h>
#include <Tests/Support/Commands.h>
#include <Tests/Support/IsolatedTest.h>
#include <Tests/Support/NetworkNamespace.h>
#include <Tests/Support/PrivateNetwork.h>
#include <array>
#include <csignal>
#include <fstream>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

namespace
{
constexpr std::chrono::milliseconds Limit(20000);

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
        const ssize_t size = poll(&source, 1, static_cast<int>(Limit.count())) == 1
                                 ? recv(descriptor, message.data(), message.size(), 0)
                                 : 0;
        return std::string(message.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
    }

private:
    int descriptor;
    std::string name = "discovery-client-tests-" + std::to_string(getpid());
};

/// True once the program holds the stop signals back: it may still be at its start. An ignored SIGPIPE tells its
/// mask from those that fork and a sanitizer's start set for a moment.
bool HoldsSignalsBack(pid_t program)
{
    std::ifstream stream("/proc/" + std::to_string(program) + "/status"); // of its main thread
    const std::string status(std::istreambuf_iterator<char>(stream), {});
    const auto has = [&status](const std::string& set, int number)
    {
        const std::size_t at = status.find(set);
        return at != std::string::npos &&
               (std::stoull(status.substr(at + set.size()), nullptr, 16) >> (number - 1) & 1) != 0;
    };
    return has("SigIgn:", SIGPIPE) && has("SigBlk:", SIGTERM);
}

class ServiceProcessTests : public IsolatedTest<PrivateNetwork>
{
protected:
    void SetUp() override
    {
        Shell("ip link add lan type veth peer name other; ip link set lan up; ip link set other up;"
              "ip addr add 10.7.0.1/16 dev lan");
        setenv("NOTIFY_SOCKET", notify.Name().c_str(), 1);
        std::signal(SIGPIPE, SIG_DFL);
    }

    ClientProcess StartService() const
    {
        return {NetworkNamespace::OfThisThread(), "STUDIO4", folders};
    }

    NotifySocket notify; // made within the network: abstract sockets belong to one too
    HostFolders folders;
};
} // namespace

TEST_F(ServiceProcessTests, EachStopSignalEndsTheServiceCleanly)
{
    for (const int number : {SIGTERM, SIGINT})
    {
        SCOPED_TRACE(number);
        ClientProcess service = StartService();
        ASSERT_EQ("READY=1", notify.Hear());

        service.Signal(number);
        service.Signal(number);

        EXPECT_EQ("STOPPING=1", notify.Hear());
        EXPECT_EQ(0, service.ExitCode(Limit));
    }
}

TEST_F(ServiceProcessTests, AStopSignalDuringTheStartWaitsForItsEnd)
{
    ClientProcess service = StartService();
    for (int waited = 0; !HoldsSignalsBack(service.Id()) && waited < Limit.count(); ++waited)
    {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }

    service.Signal(SIGTERM);

    EXPECT_EQ("READY=1", notify.Hear());
    EXPECT_EQ("STOPPING=1", notify.Hear());
    EXPECT_EQ(0, service.ExitCode(Limit));
}

TEST_F(ServiceProcessTests, AnUnusableLogFolderEndsTheStartAndSaysWhere)
{
    const auto root = folders.LogFile().parent_path().parent_path().parent_path();
    std::ofstream(root) << "a file in the folder's place";

    testing::internal::CaptureStderr();
    const int code = StartService().ExitCode(Limit);
    const std::string errors = testing::internal::GetCapturedStderr();

    EXPECT_EQ(128 + SIGABRT, code);
    EXPECT_NE(std::string::npos, errors.find("Tesmo::System::IO::IOException: I/O error occured.")) << errors;
    EXPECT_NE(std::string::npos, errors.find("DirectoryInfo::Create")) << errors;
}
