#include "LanTest.h"

#include <algorithm>
#include <csignal>
#include <ctime>
#include <fstream>
#include <iomanip>
#include <numeric>
#include <regex>
#include <sstream>
#include <sys/mount.h>

namespace Lan
{
namespace
{
constexpr std::size_t Width = 256;                         // characters of banners
constexpr long long TicksAtUnixEpoch = 621355968000000000; // 100 ns units from year 1 to 1970
constexpr long long TicksPerSecond = 10000000;

struct Row
{
    std::string date;
    std::string refTime;
    std::string channel;
    std::string level;
    std::string error;
    std::string message;
};

/// The lines of a log without their ends, each of which must be CR LF.
std::vector<std::string> Lines(const std::string& log)
{
    std::vector<std::string> lines;
    std::size_t begin = 0;
    for (std::size_t end = 0; (end = log.find('\n', begin)) != std::string::npos; begin = end + 1)
    {
        EXPECT_TRUE(end > begin && log[end - 1] == '\r') << log.substr(begin, end - begin);
        lines.push_back(log.substr(begin, end - begin - 1));
    }
    EXPECT_EQ(log.size(), begin) << "the last line has no end";
    return lines;
}

std::string Padded(std::string text, char filler = ' ')
{
    text.resize(Width - 1, filler);
    return text;
}

/// The header of a run that began at the given time.
std::vector<std::string> Header(std::time_t begin)
{
    std::ostringstream date;
    date << std::put_time(std::localtime(&begin), "%d/%m/%Y");
    return {Padded("/", '-') + "\\",
            Padded("| Date    : " + date.str()) + "|",
            Padded("| Path    : /var/log/Zelkor/Discovery/DiscoveryClient/") + "|",
            Padded("| File    : DiscoveryClient.log") + "|",
            Padded("| Level   : Standard") + "|",
            Padded("\\", '-') + "/",
            "",
            Padded("/", '-') + "\\",
            Padded("|Date                   |RefTime           |Channel                                 |T|Error      "
                   "|Message") +
                "|",
            Padded("|-----------------------|------------------|----------------------------------------|-|-----------"
                   "|-------",
                   '-') +
                "|"};
}

/// Takes a line apart; one that isn't in the form of a row fails the test.
Row Parse(const std::string& line)
{
    static const std::regex form(R"(\|(\d\d/\d\d/\d{4} \d\d:\d\d:\d\d\.\d{1,3}\.000)\|0x([0-9A-F]{16})\|(.{40})\|)"
                                 R"(([CS])\|( {11}|\$0x[0-9A-F]{8})\|(.*)\|)");
    std::smatch match;
    EXPECT_TRUE(std::regex_match(line, match, form)) << line;
    return match.empty() ? Row() : Row{match[1], match[2], match[3], match[4], match[5], match[6]};
}

/// The time of a row's date column in seconds, by the zone of this machine.
std::time_t Time(const Row& row)
{
    std::tm fields{};
    std::istringstream(row.date) >> std::get_time(&fields, "%d/%m/%Y %H:%M:%S");
    fields.tm_isdst = -1;
    return std::mktime(&fields);
}

std::time_t RefTime(const Row& row)
{
    return static_cast<std::time_t>((std::stoll(row.refTime, nullptr, 16) - TicksAtUnixEpoch) / TicksPerSecond);
}

/// What a run tells: level, channel and message of each row.
const std::vector<std::string> expectedRows = {
    "S : Start DiscoveryClient.log",
    "C Discovery Client: Starting Discovery Client service (1.0.23)",
    "C ClientTaskProcessor: ---Waiting for tasks...",
    "C MessageParser: ---Waiting for messages...",
    "C Receiver: ---Listening...",
    "C IPChangeWatcher: ---Waiting for IP changes...",
    "S ClientTaskProcessor: Sending message of type Hello",
    "S ClientTaskProcessor: Message sent",
    "S MessageParser: Message type : SendYourSignature",
    "S ClientTaskProcessor: Sending message of type SignatureBroadcast",
    "S ClientTaskProcessor: Message sent",
    "S MessageParser: Message type : SendYourSignature",
    "S ClientTaskProcessor: Sending message of type SignatureBroadcast",
    "S ClientTaskProcessor: Message sent",
    "S MessageParser: Message type : ChangeYourIPConfig",
    "C ClientTaskProcessor: A given IP config is invalid ! => Not changing and resending current signature.",
    "C ClientTaskProcessor: Invalid IP config : 127.0.0.1/255.255.255.0/0.0.0.0",
    "S ClientTaskProcessor: Sending message of type SignatureBroadcast",
    "S ClientTaskProcessor: Message sent",
    "S MessageParser: Message type : ChangeYourHostName",
    "S ClientTaskProcessor: Changing HostName",
    "C ClientTaskProcessor: Exception caught during call to IDiscoveryClientDataGateway::ChangeHostName !: "
    "W32Gateway::SetHostName failed ! Args : no name, location: ",
    "C ClientTaskProcessor: source:line",
    "C ClientTaskProcessor: HostName change returned an exception -> sending signature.",
    "S ClientTaskProcessor: Sending message of type SignatureBroadcast",
    "S ClientTaskProcessor: Message sent",
    "C MessageParser: Message dropped : bad format !: One of identified items is an invalid format., location: ",
    "C MessageParser: source:line",
    "C MessageParser: Message dropped : bad format !: Value does not fall within the expected range., location: ",
    "C MessageParser: source:line",
    "S IPChangeWatcher: IP change detected ! Triggering action...",
    "S ClientTaskProcessor: Sending message of type SignatureBroadcast",
    "S ClientTaskProcessor: Message sent",
    "C Discovery Client: Stopping Discovery Client service",
    "C IPChangeWatcher: Stopping IPChangeWatcher",
    "C IPChangeWatcher: ---IPChangeWatcher stopped---",
    "C Receiver: Stopping receiver",
    "C Receiver: Stopping worker",
    "C Receiver: The socket has been # : ending worker.: The Socket operation failed., location: ",
    "C Receiver: source:line",
    "C Receiver: Worker stopped",
    "C Receiver: ---Receiver stopped---",
    "C MessageParser: Stopping message parser",
    "C MessageParser: Stopping worker",
    "C MessageParser: Worker stopped",
    "C MessageParser: ---Message parser stopped---",
    "C ClientTaskProcessor: Stopping Task Processor",
    "C ClientTaskProcessor: Stopping worker",
    "C ClientTaskProcessor: Worker stopped",
    "C ClientTaskProcessor: ---Task Processor stopped---",
    "S ClientTaskProcessor: Sending message of type Bye",
    "S ClientTaskProcessor: Message sent",
    "C Discovery Client: Discovery Client service stopped",
};

/// The same rows in an order that doesn't depend on which of the threads spoke first.
std::string Sorted(std::vector<std::string> rows)
{
    std::sort(rows.begin(), rows.end());
    return std::accumulate(rows.begin(), rows.end(), std::string(),
                           [](const std::string& text, const std::string& row) { return text + row + "\n"; });
}

/// Level, channel and message of a row, without what differs from build to build and run to run: the places of throws, and
/// which of the two steps of a socket's end the receiver saw.
std::string Told(const Row& row)
{
    static const std::regex place(R"(^[\w./]+\.cpp:\d+$)");
    static const std::regex step("The socket has been (shut down|closed)");
    const std::string channel = row.channel.substr(0, row.channel.find_last_not_of(' ') + 1);
    return row.level + " " + channel + ": " +
           std::regex_replace(std::regex_replace(row.message, place, "source:line"), step, "The socket has been #");
}
} // namespace

class LogFileTests : public LanTest
{
protected:
    /// One run with every kind of request, bad datagrams and an address change.
    void Run()
    {
        StartAndHearHello();
        for (const std::string& text :
             {Request("AllSendYourSignature", "True"), Request("SendYourSignature", "False"),
              Request("ChangeYourIPConfig", "False",
                      R"(,"NewNICConfigs":[)" + Adapter{"x", lan0.mac, "127.0.0.1"}.Json() + "]"),
              Request("ChangeYourHostName", "False", R"(,"NewHostName":"no name")")})
        {
            station->Say(text, "10.77.0.2");
            EXPECT_TRUE(station->Hear());
        }
        station->Say("no message", "10.77.0.2");
        station->Say(Request("Dance", "True"), "10.77.0.2");
        host->Ip("addr add 10.77.0.9/24 dev lan0");
        EXPECT_TRUE(station->HearWith(R"("SignatureBroadcast")"));
        ExpectCleanStop();
        host->Ip("addr del 10.77.0.9/24 dev lan0");
    }
};

TEST_F(LogFileTests, EachRunAppendsAHeaderAndRowsInTheFormThatReadersOfTheFileKnow)
{
    std::size_t read = 0;
    for (const int run : {1, 2})
    {
        SCOPED_TRACE(run);
        const std::time_t begin = std::time(nullptr);
        Run();
        const std::vector<std::string> header = Header(begin);
        const std::vector<std::string> all = Lines(folders.Log());
        ASSERT_LT(read + header.size(), all.size());
        const auto rows = all.begin() + static_cast<std::ptrdiff_t>(read + header.size());
        EXPECT_EQ(header, std::vector<std::string>(all.begin() + static_cast<std::ptrdiff_t>(read), rows));
        read = all.size();
        std::vector<std::string> told;
        for (auto line = rows; line != all.end(); ++line)
        {
            const Row row = Parse(*line);
            told.push_back(Told(row));
            EXPECT_LE(begin, Time(row)) << *line;
            EXPECT_LE(std::abs(Time(row) - RefTime(row)), 1) << *line;
        }
        EXPECT_EQ(Sorted(expectedRows), Sorted(told));
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

    std::filesystem::path Ballast() const
    {
        return folders.AboveLogs() / "ballast";
    }

    void FillDisk() const
    {
        std::ofstream ballast(Ballast());
        while (ballast << std::string(512, '.') << std::flush)
        {
        }
    }
};

TEST_F(FullDiskTests, TheClientEndsAtItsNextRowAndComesBackWhenThereIsSpace)
{
    StartAndHearHello();
    FillDisk();
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

    std::filesystem::remove(Ballast());
    StartAndHearHello();
    ExpectCleanStop();
}
} // namespace Lan
