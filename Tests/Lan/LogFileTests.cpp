#include "LanTest.h"

#include <algorithm>
#include <csignal>
#include <fstream>
#include <regex>
#include <sstream>
#include <sys/mount.h>

namespace Lan
{
namespace
{
/// What a run tells: level, channel and message of each row, sorted, since threads speak at once.
constexpr const char* expectedRows = R"(C ClientTaskProcessor: ---Task Processor stopped---
C ClientTaskProcessor: ---Waiting for tasks...
C ClientTaskProcessor: Stopping Task Processor
C ClientTaskProcessor: Stopping worker
C ClientTaskProcessor: Worker stopped
C Discovery Client: Discovery Client service stopped
C Discovery Client: Starting Discovery Client service (1.0.23)
C Discovery Client: Stopping Discovery Client service
C IPChangeWatcher: ---IPChangeWatcher stopped---
C IPChangeWatcher: ---Waiting for IP changes...
C IPChangeWatcher: Stopping IPChangeWatcher
C MessageParser: ---Message parser stopped---
C MessageParser: ---Waiting for messages...
C MessageParser: Message dropped : bad format !: One of identified items is an invalid format., location: 
C MessageParser: Stopping message parser
C MessageParser: Stopping worker
C MessageParser: Worker stopped
C MessageParser: source:line
C Receiver: ---Listening...
C Receiver: ---Receiver stopped---
C Receiver: Stopping receiver
C Receiver: Stopping worker
C Receiver: The socket has been # : ending worker.: The Socket operation failed., location: 
C Receiver: Worker stopped
C Receiver: source:line
S : Start DiscoveryClient.log
S ClientTaskProcessor: Message sent
S ClientTaskProcessor: Message sent
S ClientTaskProcessor: Sending message of type Bye
S ClientTaskProcessor: Sending message of type Hello
)";

/// The rows of a log in that form, without what differs from run to run: the places of throws, and which of the two
/// steps of a socket's end the receiver saw. Lines that are no rows go through as they are.
std::string Told(const std::string& log)
{
    static const std::regex row(
        R"(\|\d\d/\d\d/\d{4} \d\d:\d\d:\d\d\.\d{1,3}\.000\|0x[0-9A-F]{16}\|(?=.{40}\|)(.*?) *\|)"
        R"(([CS])\|(?: {11}|\$0x[0-9A-F]{8})\|(.*)\|\r)");
    static const std::regex place(R"(: [\w./]+\.cpp:\d+$)");
    static const std::regex step("The socket has been (shut down|closed)");
    std::vector<std::string> rows;
    std::istringstream lines(log);
    for (std::string line; std::getline(lines, line);)
    {
        line = std::regex_replace(line, row, "$2 $1: $3");
        line = std::regex_replace(line, place, ": source:line");
        rows.push_back(std::regex_replace(line, step, "The socket has been #"));
    }
    std::sort(rows.begin(), rows.end());
    std::string text;
    for (const std::string& told : rows)
    {
        text += told + "\n";
    }
    return text;
}
} // namespace

class LogFileTests : public LanTest
{
};

TEST_F(LogFileTests, EachRunAppendsAHeaderAndRowsInTheFormThatReadersOfTheFileKnow)
{
    std::size_t read = 0;
    for (const int run : {1, 2})
    {
        SCOPED_TRACE(run);
        StartAndHearHello();
        station->Say("no message", "10.77.0.2");
        EXPECT_TRUE(client->WaitForLog("Message dropped", run));
        ExpectCleanStop();
        const std::string log = folders.Log();
        const std::size_t columns = log.find("\r\n|Date                   |RefTime           |Channel ", read);
        ASSERT_NE(std::string::npos, columns) << log;
        const std::size_t rows = log.find("\r\n", log.find("\r\n|---", columns) + 2) + 2;
        EXPECT_TRUE(log.substr(read, columns).starts_with("/---")) << log;
        EXPECT_EQ(expectedRows, Told(log.substr(rows)));
        read = log.size();
    }
}

/// A client whose logs lie on a small disk of their own.
class FullDiskTests : public LanTest
{
protected:
    void SetUp() override
    {
        LanTest::SetUp();
        if (!IsSkipped())
        {
            ASSERT_EQ(0, mount("tmpfs", folders.AboveLogs().c_str(), "tmpfs", 0, "size=256k"));
        }
    }

    void TearDown() override
    {
        client.reset();
        umount2(folders.AboveLogs().c_str(), MNT_DETACH);
    }
};

TEST_F(FullDiskTests, TheClientEndsAtItsNextRowAndComesBackWhenThereIsSpace)
{
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
}
} // namespace Lan
