#include "LanTest.h"

#include <filesystem>
#include <fstream>
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
} // namespace Lan
