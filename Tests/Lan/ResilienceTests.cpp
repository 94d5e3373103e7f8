#include "LanTest.h"

#include <filesystem>
#include <fstream>
#include <limits>
#include <map>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace Lan
{
namespace
{
/// The client's descriptor of the UDP socket on port 12000, -1 if there is none.
int SharedSocketOf(pid_t process)
{
    const std::string root = "/proc/" + std::to_string(process);
    std::ifstream table(root + "/net/udp");
    std::string inode;
    for (std::string line; std::getline(table, line);)
    {
        std::istringstream words(line);
        std::string word;
        std::string local;
        words >> word >> local;
        for (int skipped = 0; skipped < 8; ++skipped)
        {
            words >> word;
        }
        if (local.ends_with(":2EE0")) // 12000 in hexadecimal
        {
            inode = word;
        }
    }
    for (const auto& entry : std::filesystem::directory_iterator(root + "/fd"))
    {
        std::error_code gone;
        if (std::filesystem::read_symlink(entry.path(), gone) == "socket:[" + inode + "]")
        {
            return std::stoi(entry.path().filename());
        }
    }
    return -1;
}

/// Shuts a socket of another process down, as a fault in its system would.
void ShutDownFromOutside(pid_t process, int number)
{
    const Descriptor handle(static_cast<int>(syscall(SYS_pidfd_open, process, 0)));
    const Descriptor copy(static_cast<int>(syscall(SYS_pidfd_getfd, handle.Number(), number, 0)));
    ASSERT_GE(copy.Number(), 0);
    shutdown(copy.Number(), SHUT_RDWR); // says ENOTCONN for a datagram socket and works all the same
}

/// Context switches of each thread so far: a thread that wakes shows here.
std::map<std::string, long> Switches(pid_t process)
{
    std::map<std::string, long> result;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/" + std::to_string(process) + "/task"))
    {
        std::ifstream status(entry.path() / "status");
        for (std::string line; std::getline(status, line);)
        {
            if (const std::size_t at = line.find("_ctxt_switches:"); at != std::string::npos)
            {
                result[entry.path().filename()] += std::stol(line.substr(at + 15));
            }
        }
    }
    return result;
}

/// Memory of the process's own in KiB: without the pages of program and libraries, of which the system maps as many as it
/// has at hand. The check of the package bounds the whole.
long OwnMemory(pid_t process)
{
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    for (std::string line; std::getline(status, line);)
    {
        if (line.starts_with("RssAnon:"))
        {
            return std::stol(line.substr(8));
        }
    }
    return std::numeric_limits<long>::max();
}
} // namespace

class ResilienceTests : public LanTest
{
};

TEST_F(ResilienceTests, APortUnreachableCostsOneLineAndNothingElse)
{
    StartAndHearHello();
    station.reset();
    {
        const Station passerby(*office, 12055); // nobody listens where its answer goes
        passerby.Say(Request("SendYourSignature", "False"), "10.77.0.2");
        EXPECT_TRUE(client->WaitForLog("Port Unreachable")) << client->Log();
    }
    station = std::make_unique<Station>(*office);
    station->Say(Request("SendYourSignature", "False"), "10.77.0.2");
    EXPECT_TRUE(station->Hear()) << client->Log();
    EXPECT_EQ(1, client->Logged(R"(Socket error : remote peer returned a "Port Unreachable" ICMP packet.)"));
    ExpectCleanStop();
}

TEST_F(ResilienceTests, ASocketClosedFromOutsideComesBackThroughOneRestart)
{
    StartAndHearHello();
    const int number = SharedSocketOf(client->Id());
    ASSERT_GE(number, 0);

    ShutDownFromOutside(client->Id(), number);

    EXPECT_TRUE(station->HearWith(R"("Bye")")) << client->Log();
    EXPECT_TRUE(station->HearWith(R"("Hello")")) << client->Log();
    station->Say(Request("SendYourSignature", "False"), "10.77.0.2");
    EXPECT_TRUE(station->HearWith(R"("SignatureBroadcast")")) << client->Log();
    EXPECT_EQ(1, client->Logged("Asynchronous restart triggered"));
    ExpectCleanStop();
}

TEST_F(ResilienceTests, AnIdleClientNeverWakesAndStaysSmall)
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "a sanitizer has threads and memory of its own";
#endif
    StartAndHearHello();
    station->Say(Request("SendYourSignature", "False"), "10.77.0.2");
    ASSERT_TRUE(station->Hear());
    std::this_thread::sleep_for(std::chrono::seconds(1)); // the threads settle in their waits

    const std::map<std::string, long> before = Switches(client->Id());
    std::this_thread::sleep_for(std::chrono::seconds(60));
    EXPECT_EQ(before, Switches(client->Id()));
    EXPECT_LT(OwnMemory(client->Id()), 2 * 1024) << "0.7 MiB were seen";
    ExpectCleanStop();
}
} // namespace Lan
