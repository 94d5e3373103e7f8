#include <Tests/Support/ClientProcess.h>
#include <Tests/Support/IsolatedTest.h>
#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
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
        EXPECT_EQ(0, bind(descriptor.Number(), reinterpret_cast<sockaddr*>(&address), size));
    }

    std::string Name() const
    {
        return "@" + name;
    }

    /// The next message, or an empty text after the limit.
    std::string Hear() const
    {
        pollfd source = {descriptor.Number(), POLLIN, 0};
        char message[256];
        const ssize_t size = poll(&source, 1, static_cast<int>(Limit.count())) == 1
                                 ? recv(descriptor.Number(), message, sizeof(message), 0)
                                 : 0;
        return std::string(message, static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
    }

private:
    Descriptor descriptor;
    std::string name = "discovery-client-tests-" + std::to_string(getpid());
};

/// The names of the client's threads in the order of their starts: behind main, the one that takes signals, and the
/// service sequence.
std::string StagesOf(pid_t program)
{
    std::map<int, std::string> names;
    for (const auto& thread : std::filesystem::directory_iterator("/proc/" + std::to_string(program) + "/task"))
    {
        std::getline(std::ifstream(thread.path() / "comm"), names[std::stoi(thread.path().filename())]);
    }
    std::string stages;
    for (const auto& [id, name] : names)
    {
        stages += name.starts_with("DiscoveryClient") ? "" : name + ";";
    }
    return stages;
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

    NotifySocket notify; // made within the network: abstract sockets belong to one too
    HostFolders folders;
};
} // namespace

TEST_F(ServiceProcessTests, EachStopSignalEndsTheServiceCleanly)
{
    for (const int number : {SIGTERM, SIGINT})
    {
        SCOPED_TRACE(number);
        ClientProcess service(folders);
        ASSERT_EQ("READY=1", notify.Hear());
        EXPECT_TRUE(service.WaitForLog("---Waiting", 3) &&
                    service.WaitForLog("---Listening")); // each has its name then
        EXPECT_EQ("ClientTaskProce;MessageParser;Receiver;IPChangeWatcher;", StagesOf(service.Id()));

        service.Signal(number);
        service.Signal(number);

        EXPECT_EQ("STOPPING=1", notify.Hear());
        EXPECT_EQ(0, service.ExitCode(Limit));
    }
}

TEST_F(ServiceProcessTests, AStopSignalDuringTheStartWaitsForItsEnd)
{
    // Under a lease, whoever opens the log file waits, and SIGIO tells of it (fcntl(2)): the start stands still there.
    sigset_t leaseSignal;
    sigemptyset(&leaseSignal);
    sigaddset(&leaseSignal, SIGIO);
    pthread_sigmask(SIG_BLOCK, &leaseSignal, nullptr);
    std::filesystem::create_directories(folders.LogFile().parent_path());
    const Descriptor log(open(folders.LogFile().c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    ASSERT_EQ(0, fcntl(log.Number(), F_SETLEASE, F_WRLCK));
    ClientProcess service(folders);
    const timespec limit{20, 0};
    ASSERT_EQ(SIGIO, sigtimedwait(&leaseSignal, nullptr, &limit));

    service.Signal(SIGTERM);
    ASSERT_EQ(0, fcntl(log.Number(), F_SETLEASE, F_UNLCK));

    EXPECT_EQ("READY=1", notify.Hear());
    EXPECT_EQ("STOPPING=1", notify.Hear());
    EXPECT_EQ(0, service.ExitCode(Limit));
}

TEST_F(ServiceProcessTests, AnUnusableLogFolderEndsTheStartAndSaysWhere)
{
    const auto root = folders.LogFile().parent_path().parent_path().parent_path();
    std::ofstream(root) << "a file in the folder's place";

    testing::internal::CaptureStderr();
    const int code = ClientProcess(folders).ExitCode(Limit);
    const std::string errors = testing::internal::GetCapturedStderr();

    EXPECT_EQ(128 + SIGABRT, code);
    EXPECT_NE(std::string::npos, errors.find("Tesmo::System::IO::IOException: I/O error occured.")) << errors;
    EXPECT_NE(std::string::npos, errors.find("DirectoryInfo::Create")) << errors;
}
