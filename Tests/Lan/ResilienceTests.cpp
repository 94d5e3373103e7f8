#include "LanTest.h"

#include <csignal>
#include <fstream>
#include <netinet/in.h>
#include <sys/mount.h>
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

using ResilienceTests = LanTest;

TEST_F(ResilienceTests, ASocketClosedFromOutsideComesBackThroughOneRestart)
{
    StartAndHearHello();
    ASSERT_TRUE(ShutDownFromOutside(client->Id()));

    EXPECT_TRUE(station->HearWith(R"("Bye")") && station->HearWith(R"("Hello")")) << client->Log();
    station->Say(Request("SendYourSignature", "False"), "10.77.0.2");
    EXPECT_TRUE(station->HearWith(R"("SignatureBroadcast")")) << client->Log();
    EXPECT_EQ(1, client->Logged("Asynchronous restart triggered"));
    ExpectCleanStop();
}

TEST_F(ResilienceTests, OnAFullDiskTheClientEndsAtItsNextRowAndComesBackWhenThereIsSpace)
{
    ASSERT_EQ(0, mount("tmpfs", folders.AboveLogs().c_str(), "tmpfs", 0, "size=256k"));
    StartAndHearHello();
    const std::filesystem::path ballast = folders.AboveLogs() / "ballast";
    for (std::ofstream file(ballast); file << std::string(512, '.') << std::flush;)
    {
    }
    EXPECT_EQ(-1, client->ExitCode(std::chrono::milliseconds(200))) << "a client that logs nothing needs no space";
    const std::string before = folders.Log();

    // As many as the row's rest in the file's last page holds, and one more.
    for (int sent = 0; sent < 20; ++sent)
    {
        station->Say(Request("AllSendYourSignature", "True"), "10.77.0.2");
    }
    EXPECT_EQ(128 + SIGABRT, client->ExitCode(std::chrono::milliseconds(5000)));
    EXPECT_TRUE(folders.Log().starts_with(before)) << "what stood in the file stays";
    StartClient();
    EXPECT_EQ(128 + SIGABRT, client->ExitCode(std::chrono::milliseconds(5000)));

    std::filesystem::remove(ballast);
    StartAndHearHello();
    ExpectCleanStop();
    umount2(folders.AboveLogs().c_str(), MNT_DETACH);
}
} // namespace Lan
