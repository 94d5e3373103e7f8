#include "CoreTest.h"
#include "RecordingStream.h"
#include "TemporaryFolder.h"

#include <Core/LogStream/LogStream.h>
#include <Core/System/DateTime.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <thread>
#include <utility>

using namespace Tesmo;
using namespace Tesmo::System;
using namespace Tesmo::System::LogStreams;

namespace
{
class FixedTime : public ILogStreamRefTime
{
public:
    std::int64_t RefTime() const override
    {
        return 0x08DF424CD52B4430;
    }
};

const FixedTime fixedTime;

std::string Today()
{
    return DateTime::Now().ToString("%d/%m/%Y").Utf8();
}

/// The text with "<time>" in the place of each date and time that is of today.
std::string WithoutTimes(const std::string& text)
{
    static const std::regex moment(Today() + R"( [0-2]\d:[0-5]\d:[0-5]\d\.\d{1,3}\.000)");
    return std::regex_replace(text, moment, "<time>");
}

std::string Padded(std::string text, char filler, char end, std::size_t width = 256)
{
    text.resize(std::max(text.size(), width - 1), filler);
    return text + end + "\r\n";
}

/// The header block; moreLines stand before and after the date.
std::string Header(const std::string& before, const std::string& after, const std::string& level = "Standard",
                   std::size_t width = 256)
{
    return Padded("/", '-', '\\', width) + before + Padded("| Date    : " + Today(), ' ', '|', width) + after +
           Padded("| Level   : " + level, ' ', '|', width) + Padded("\\", '-', '/', width) + "\r\n" +
           Padded("/", '-', '\\', width) +
           Padded("|Date                   |RefTime           |Channel                                 |T|Error      "
                  "|Message",
                  ' ', '|', width) +
           Padded("|-----------------------|------------------|----------------------------------------|-|-----------"
                  "|-------",
                  '-', '|', width);
}

std::string FileHeader(const TemporaryFolder& folder, const std::string& name)
{
    const std::string path = folder.Path(name).Utf8();
    return Header("", Padded("| Path    : " + path.substr(0, path.size() - name.size()), ' ', '|') +
                          Padded("| File    : " + name, ' ', '|'));
}

std::string Row(std::string channel, char level, const std::string& error, const std::string& message)
{
    channel.resize(40, ' ');
    return "|<time>|0x08DF424CD52B4430|" + channel + "|" + level + "|" + error + "|" + message + "|\r\n";
}

const std::string noError(11, ' ');

/// A log in memory; Take gives what was written since the last call.
struct MemoryLog
{
    explicit MemoryLog(LogStreamLevel level = LogStreamLevel::Standard) : log(&fixedTime, Sp<IO::Stream>(sink), level)
    {
    }
    std::string Take()
    {
        return WithoutTimes(std::exchange(sink->text, std::string()));
    }

    Sp<RecordingStream> sink{new RecordingStream};
    LogStream log;
};

/// A line of a header, or the "Start" row.
bool IsOwnLine(const std::string& line)
{
    return line == "\r" || line.starts_with("/-") || line.starts_with("\\-") || line.starts_with("|-") ||
           line.starts_with("| ") || line.starts_with("|Date ") || line.ends_with("|Start c.log|\r");
}

/// Channel and number of a row whose message is both; no name where the line is no whole row.
std::pair<std::string, int> ThreadRow(const std::string& line)
{
    static const std::string date = "|00/00/0000 00:00:00.";
    const std::size_t dateEnd = line.find('|', 1);
    if (dateEnd == line.npos || dateEnd < date.size() + 5 || dateEnd > date.size() + 7)
    {
        return {};
    }
    const std::string name = line.substr(dateEnd + 20, line.find(' ', dateEnd + 20) - dateEnd - 20);
    std::string channel = name;
    channel.resize(40, ' ');
    const std::size_t message = dateEnd + 75;
    const int number = std::atoi(line.substr(std::min(message + name.size(), line.size())).c_str());
    const std::string rest = "|" + channel + "|S|" + noError + "|" + name + std::to_string(number) + "|\r";
    const bool isWhole = line.substr(dateEnd, 3) == "|0x" && line.substr(dateEnd + 19) == rest;
    return isWhole ? std::pair(name, number) : std::pair<std::string, int>();
}

class CodedException : public InvalidOperationException
{
public:
    explicit CodedException(int code) : InvalidOperationException("no way", "Some/File.cpp", 12)
    {
        ErrorCode(code);
    }
};
} // namespace

TEST(LogStreamTests, ALogBeginsWithAHeaderAndEndsWithAClosingLine)
{
    const Sp<RecordingStream> sink(new RecordingStream);
    LogStream log(&fixedTime, Sp<IO::Stream>(sink), LogStreamLevel::Debug, "A", String(), "P\xC3\xA9");
    log.Close();
    const std::string banners = Padded("| Author  : A", ' ', '|') + Padded("| Product : P\xC3\xA9", ' ', '|', 257);
    EXPECT_EQ(Header(banners, "", "Debug") + Row(" ", 'S', noError, "Start Log") + Row(" ", 'S', noError, "Close Log") +
                  Padded("\\", '-', '/') + "\r\n",
              WithoutTimes(sink->text));
    EXPECT_TRUE(sink->IsClosed());
}

TEST(LogStreamTests, ARowHasSixFields)
{
    MemoryLog memory;
    memory.Take();
    const LogStreamChannel channel("ClientDataGateway");
    const std::string widest(40, 'w');

    const int writes = memory.sink->writes;
    memory.log.Write(channel, "No IP configuration to update on this Client.");
    EXPECT_EQ(Row("ClientDataGateway", 'S', noError, "No IP configuration to update on this Client."), memory.Take());
    EXPECT_EQ(2, memory.sink->writes - writes); // the text and the line end

    memory.log.Write(LogStreamChannel(String(widest)), LogStreamLevel::Critical, -1, "\xE2\x82\xAC\r\nsecond|line ");
    EXPECT_EQ(Row(widest, 'C', "$0xFFFFFFFF", "\xE2\x82\xAC\r\nsecond|line "), memory.Take());

    memory.log.Write(channel, "text", CodedException(static_cast<int>(0x80004005)));
    EXPECT_EQ(Row("ClientDataGateway", 'C', "$0x80004005", "text: no way, location: ") +
                  Row("ClientDataGateway", 'C', "$0x80004005", "Some/File.cpp:12"),
              memory.Take());
    memory.log.Write(channel, CodedException(0));
    EXPECT_EQ(Row("ClientDataGateway", 'C', noError, "no way, location: ") +
                  Row("ClientDataGateway", 'C', noError, "Some/File.cpp:12"),
              memory.Take());
}

TEST(LogStreamTests, OtherLinesFollowTheWidth)
{
    MemoryLog memory;
    memory.Take();
    const LogStreamChannel channel("c");
    memory.log.WriteBlank(channel);
    EXPECT_EQ(Padded("|", ' ', '|'), memory.Take());
    memory.log.LineWidth(1024);
    memory.log.WriteSeparator(channel, LogStreamLevel::Critical);
    EXPECT_EQ(Padded("|", '-', '|', 1024), memory.Take());
    memory.log.WriteDump(channel, LogStreamLevel::Standard, "00 01\r\n02");
    EXPECT_EQ("<time> (0x08DF424CD52B4430)c :\r\n00 01\r\n02\r\n", memory.Take());
    EXPECT_THROW(memory.log.LineWidth(1), ArgumentOutOfRangeException);
}

TEST(LogStreamTests, TheFilterComesBeforeEverything)
{
    MemoryLog memory;
    memory.Take();
    const auto& noChannel = static_cast<const LogStreamChannel&>(null);
    memory.log.Write(noChannel, LogStreamLevel::Debug, 0, "filtered");
    memory.log.WriteBlank(noChannel, LogStreamLevel::Debug);
    memory.log.WriteSeparator(noChannel, LogStreamLevel::Debug);
    memory.log.WriteDump(noChannel, LogStreamLevel::Debug, "filtered");
    EXPECT_EQ("", memory.Take());

    EXPECT_THROW(memory.log.Write(noChannel, "text"), ArgumentNullException);
    EXPECT_THROW(memory.log.WriteBlank(noChannel), ArgumentNullException);
    EXPECT_THROW(memory.log.WriteSeparator(noChannel, LogStreamLevel::Standard), ArgumentNullException);
    EXPECT_THROW(memory.log.Write(LogStreamChannel("c"), static_cast<const String&>(null)), ArgumentNullException);
    EXPECT_THROW(memory.log.Write(LogStreamChannel("c"), LogStreamLevel(0), "text"), ArgumentException);
    EXPECT_EQ("", memory.Take());
}

TEST(LogStreamTests, AChangeOfLevelIsARowOfTheOldLevel)
{
    MemoryLog memory;
    memory.Take();
    memory.log.SetLevel(LogStreamLevel::Standard);
    EXPECT_EQ("", memory.Take());
    memory.log.SetLevel(LogStreamLevel::Critical);
    EXPECT_EQ(Row(" ", 'S', noError, "--------- Change log stream level from Standard to Critical ---------"),
              memory.Take());
    memory.log.SetLevel(LogStreamLevel::Debug); // Critical lets no row at Standard pass
    EXPECT_EQ("", memory.Take());
    EXPECT_TRUE(memory.log.GetLevel() == LogStreamLevel::Debug);
    EXPECT_THROW(memory.log.SetLevel(LogStreamLevel(0)), ArgumentException);
    EXPECT_TRUE(memory.log.GetLevel() == LogStreamLevel::Debug);
}

TEST(LogStreamTests, ASecondRunGoesOnInTheSameFile)
{
    const TemporaryFolder folder;
    LogStream(&fixedTime, folder.Path("Client.log")).Write(LogStreamChannel("c"), "first");
    const std::string firstRun =
        FileHeader(folder, "Client.log") + Row(" ", 'S', noError, "Start Client.log") + Row("c", 'S', noError, "first");
    EXPECT_EQ(firstRun, WithoutTimes(folder.Read("Client.log"))); // no closing line without Close
    LogStream second(&fixedTime, folder.Path("Client.log"));
    second.Close();
    EXPECT_EQ(firstRun + FileHeader(folder, "Client.log") + Row(" ", 'S', noError, "Start Client.log") +
                  Row(" ", 'S', noError, "Close Client.log") + Padded("\\", '-', '/') + "\r\n",
              WithoutTimes(folder.Read("Client.log")));
    EXPECT_THROW(second.Write(LogStreamChannel("c"), "late"), ObjectClosedException);
}

TEST(LogStreamTests, WhatCannotBeOpenedLeavesTheConstructor)
{
    const TemporaryFolder folder;
    EXPECT_THROW(LogStream(folder.Path("none/Client.log")), IO::DirectoryNotFoundException);
    EXPECT_THROW(LogStream(nullptr, folder.Path("a.log")), ArgumentNullException);
    EXPECT_THROW(LogStream(folder.Path("a.log"), LogStreamLevel::Debug, "a", null, "p"), ArgumentNullException);
    EXPECT_FALSE(folder.Has("a.log")); // what is refused leaves no file
    EXPECT_THROW(LogStream(folder.Path("a.log"), LogStreamLevel(0)), ArgumentException);
}

TEST(LogStreamTests, AFileIsSplitByTheRowThatPassesTheLimit)
{
    constexpr int limit = 5242880;
    const TemporaryFolder folder;
    folder.Write("c.log", std::string(5000000, 'x')); // of an earlier run: its bytes count
    LogStream log(&fixedTime, folder.Path("c.log"));
    const std::string start = folder.Read("c.log").substr(5000000 + FileHeader(folder, "c.log").size());
    const LogStreamChannel channel("c");
    log.BackupCount(1);
    log.WriteDump(channel, LogStreamLevel::Standard, String(char32('x'), limit)); // does not count, nor do headers
    log.LineWidth(limit - 5000000 - (static_cast<int>(start.size()) - 2) - 3);    // nor do line ends
    log.WriteBlank(channel);
    log.Write(channel, LogStreamLevel::Debug, "filtered");
    log.LineWidth(3);
    log.WriteSeparator(channel, LogStreamLevel::Standard);
    EXPECT_FALSE(folder.Has("c.bak")); // at the limit, not above it
    log.LineWidth(100);
    log.BackupCount(0);
    log.WriteBlank(channel);
    log.BackupCount(1);
    log.Write(channel, LogStreamLevel::Debug, "filtered");
    EXPECT_FALSE(folder.Has("c.bak")); // no backups were wanted, and a row that is filtered does not look

    log.WriteBlank(channel);
    ASSERT_TRUE(folder.Has("c.bak"));
    const std::string blank = Padded("|", ' ', '|', 100);
    EXPECT_TRUE(folder.Read("c.bak").ends_with("|-|\r\n" + blank + blank)); // no closing line
    const std::string fresh = folder.Read("c.log");
    EXPECT_TRUE(fresh.starts_with("/---"));
    EXPECT_TRUE(fresh.ends_with(Padded("|-----------------------|------------------|-----------------------------------"
                                       "-----|-|-----------|-------",
                                       '-', '|', 100))); // no "Start" row
    log.WriteBlank(channel);
    EXPECT_EQ(fresh + blank, folder.Read("c.log"));
}

TEST(LogStreamTests, AFailedSplitReachesTheCallerWhileTheFileIsOpen)
{
    const TemporaryFolder folder;
    LogStream log(folder.Path("c.log"));
    folder.Write("c.bak1", "old");
    folder.MakeFolder("c.bak2"); // in the way of c.bak1
    log.BackupCount(3);
    log.MaxFileSize(0);
    EXPECT_THROW(log.Write(LogStreamChannel("c"), "row"), ArgumentException);
    EXPECT_TRUE(folder.Read("c.log").ends_with("|row|\r\n")); // the row is there, "Error splitting" is not
    EXPECT_THROW(log.Write(LogStreamChannel("c"), "next"), ArgumentException);
}

TEST(LogStreamTests, ASplitThatFailsAfterTheFileWasClosedIsSilentAndEndsTheLog)
{
    const TemporaryFolder folder;
    LogStream log(folder.Path("c.log"));
    folder.MakeFolder("c.bak");
    log.BackupCount(1);
    log.MaxFileSize(0);
    EXPECT_NO_THROW(log.Write(LogStreamChannel("c"), "row"));
    EXPECT_TRUE(folder.Read("c.log").ends_with("|row|\r\n"));
    EXPECT_THROW(log.Write(LogStreamChannel("c"), "next"), ObjectClosedException);
}

TEST(LogStreamTests, RowsOfTwoThreadsStayWholeWhileTheFileIsSplit)
{
#ifdef __SANITIZE_THREAD__
    constexpr int rowsOfEach = 10000; // takes long enough
#else
    constexpr int rowsOfEach = 100000;
#endif
    constexpr int files = 50;
    const TemporaryFolder folder;
    LogStream log(folder.Path("c.log"));
    log.BackupCount(files);
    log.MaxFileSize(rowsOfEach * 7); // a row has about 115 characters: 33 files
    const auto write = [&log](const std::string& name)
    {
        const LogStreamChannel channel{String(name)};
        for (int i = 0; i < rowsOfEach; ++i)
        {
            log.Write(channel, String(name + std::to_string(i)));
        }
    };
    std::thread other(write, "other");
    write("main");
    other.join();

    std::map<std::string, std::vector<int>> seen;
    seen["main"].resize(rowsOfEach);
    seen["other"].resize(rowsOfEach);
    int fileCount = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path().Utf8()))
    {
        ++fileCount;
        std::ifstream file(entry.path(), std::ios::binary);
        for (std::string line; std::getline(file, line);)
        {
            if (!IsOwnLine(line))
            {
                const auto [name, number] = ThreadRow(line);
                ASSERT_TRUE(seen.contains(name) && number >= 0 && number < rowsOfEach) << line;
                ++seen[name][static_cast<std::size_t>(number)];
            }
        }
    }
    EXPECT_GT(fileCount, 20);
    EXPECT_LT(fileCount, files); // none was deleted
    EXPECT_EQ(std::vector<int>(rowsOfEach, 1), seen["main"]);
    EXPECT_EQ(std::vector<int>(rowsOfEach, 1), seen["other"]);
}
