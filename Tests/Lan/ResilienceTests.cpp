#include "LanTest.h"

#include <csignal>
#include <fstream>
#include <netinet/in.h>
#include <random>
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

/// Some bytes of a text changed, left out or said twice, and in places its rest left out.
std::string Mutated(std::string text, std::mt19937& random)
{
    for (unsigned times = 1 + random() % 4; times > 0 && !text.empty(); --times)
    {
        const std::size_t at = random() % text.size();
        text[at] = static_cast<char>(random());
        text.replace(at, random() % 9, text, random() % text.size(), random() % 9);
        text.resize(random() % 20 == 0 ? at : text.size());
    }
    return text;
}
} // namespace

using ResilienceTests = LanTest;

TEST_F(ResilienceTests, TwentyThousandBrokenDatagramsCostNoMoreThanTheirRows)
{
    const std::string seeds[] = {
        Announcement("Hello", "True", {lan0, lan1}, &lan0),
        Request("SendYourSignature", "True", R"(,"TargetedMACAddress":"02:00:00:00:00:99","\u0041\"":[[-1.5e3]])"),
        Request("ChangeYourIPConfig", "True", R"(,"NewNICConfigs":[)" + lan1.Json() + "]"), // none of its own
    };
    std::mt19937 random(12000);
    StartAndHearHello();
    std::size_t room = 0; // of its socket, which the kernel takes a datagram's double size and more from
    for (int sent = 0; sent < 20000; ++sent)
    {
        const std::string datagram = Mutated(seeds[random() % std::size(seeds)], random);
        const std::size_t need = 1000 + 2 * datagram.size();
        if (room < need) // an answer shows that it has taken all of them
        {
            station->Say(Request("SendYourSignature", "False"), lan0.address);
            ASSERT_TRUE(station->HearWith(R"("Broadcast":"False")", 10000)) << sent << client->Log();
            room = 120000;
        }
        station->Say(datagram, lan0.address);
        room -= need;
    }
    Shell("! grep ' 00000000:2EE0 .* [1-9][0-9]* *$' /proc/net/udp"); // the last column: found no room, port 12000
    station->Say(Request("SendYourSignature", "False"), lan0.address);
    ExpectHeard(Announcement("SignatureBroadcast", "False", {lan0}, &lan0), "10.77.0.1");
    ExpectCleanStop();
}

TEST_F(ResilienceTests, EachStartSaysHelloAndEachStopSaysBye)
{
    for (int round = 0; round < 10 && !HasFailure(); ++round)
    {
        SCOPED_TRACE(round);
        StartAndHearHello();
        ExpectCleanStop();
    }
}

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
    Shell("mkdir /run/disk; mount -t tmpfs -o size=256k none /run/disk");
    setenv("TMPDIR", "/run/disk", 1);
    MakeHost();
    unsetenv("TMPDIR");
    StartAndHearHello();
    const std::filesystem::path ballast = folders->AboveLogs() / "ballast";
    for (std::ofstream file(ballast); file << std::string(512, '.') << std::flush;)
    {
    }
    EXPECT_EQ(-1, client->ExitCode(std::chrono::milliseconds(200))) << "a client that logs nothing needs no space";
    const std::string before = folders->Log();

    // As many as the row's rest in the file's last page holds, and one more.
    for (int sent = 0; sent < 20; ++sent)
    {
        station->Say(Request("AllSendYourSignature", "True"), "10.77.0.2");
    }
    EXPECT_EQ(128 + SIGABRT, client->ExitCode(std::chrono::seconds(15)));
    EXPECT_TRUE(folders->Log().starts_with(before)) << "what stood in the file stays";
    if (IsWin32())
    {
        return; // Wine's manager does not notice that a service has died, and takes it for running
    }
    StartClient();
    EXPECT_EQ(128 + SIGABRT, client->ExitCode(std::chrono::seconds(15)));

    std::filesystem::remove(ballast);
    StartAndHearHello();
    ExpectCleanStop();
}
} // namespace Lan
