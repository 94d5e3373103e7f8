#include "LanTest.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace Lan
{
namespace
{
/// Shuts the client's socket on port 12000 down, as a fault in its system would.
bool ShutDownFromOutside(pid_t process)
{
    const Descriptor handle(static_cast<int>(syscall(SYS_pidfd_open, process, 0)));
    for (int number = 3; number < 64; ++number)
    {
        const Descriptor copy(static_cast<int>(syscall(SYS_pidfd_getfd, handle.Number(), number, 0)));
        sockaddr_in local{};
        socklen_t size = sizeof(local);
        if (getsockname(copy.Number(), reinterpret_cast<sockaddr*>(&local), &size) == 0 &&
            local.sin_family == AF_INET && local.sin_port == htons(12000))
        {
            shutdown(copy.Number(), SHUT_RDWR); // says ENOTCONN for a datagram socket and works all the same
            return true;
        }
    }
    return false;
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
    ASSERT_TRUE(ShutDownFromOutside(client->Id()));

    EXPECT_TRUE(station->HearWith(R"("Bye")")) << client->Log();
    EXPECT_TRUE(station->HearWith(R"("Hello")")) << client->Log();
    station->Say(Request("SendYourSignature", "False"), "10.77.0.2");
    EXPECT_TRUE(station->HearWith(R"("SignatureBroadcast")")) << client->Log();
    EXPECT_EQ(1, client->Logged("Asynchronous restart triggered"));
    ExpectCleanStop();
}
} // namespace Lan
