#include <Tests/Support/CoreTest.h>
#include <Tests/Support/RecordingStream.h>
#include <Tests/Support/TemporaryFolder.h>

#include <Core/LogStream/LogStream.h>
#include <Core/System/Net/Sockets/SocketException.h>

#include <regex>

using namespace Tesmo::System::LogStreams;
using namespace Tesmo::System::Net::Sockets;

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
const LogStreamChannel channel("c");

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

const std::string columnNames =
    "|Date                   |RefTime           |Channel                                 |T|Error      |Message";
const std::string lastHeaderLine =
    "|-----------------------|------------------|----------------------------------------|-|-----------|-------";

/// The header block; moreLines stand before and after the date.
std::string Header(const std::string& before, const std::string& after, const std::string& level = "Standard",
                   std::size_t width = 256)
{
    return Padded("/", '-', '\\', width) + before + Padded("| Date    : " + Today(), ' ', '|', width) + after +
           Padded("| Level   : " + level, ' ', '|', width) + Padded("\\", '-', '/', width) + "\r\n" +
           Padded("/", '-', '\\', width) + Padded(columnNames, ' ', '|', width) +
           Padded(lastHeaderLine, '-', '|', width);
}

std::string FileHeader(const TemporaryFolder& folder, const std::string& name)
{
    const std::string path = folder.Path(name).Utf8();
    return Header("", Padded("| Path    : " + path.substr(0, path.size() - name.size()), ' ', '|') +
                          Padded("| File    : " + name, ' ', '|'));
}

const std::string noError(11, ' ');

std::string Row(std::string name, char level, const std::string& message, const std::string& error = noError)
{
    name.resize(40, ' ');
    return "|<time>|0x08DF424CD52B4430|" + name + "|" + level + "|" + error + "|" + message + "|\r\n";
}

/// A log in memory; Take gives what was written since the last call, or behind the header.
struct MemoryLog
{
    std::string Take()
    {
        return WithoutTimes(std::exchange(sink->text, std::string()));
    }

    Sp<RecordingStream> sink{new RecordingStream};
    LogStream log{&fixedTime, Sp<IO::Stream>(sink)};
    const std::string start = Take();
};
class LogStreamTests : public FolderTest
{
protected:
    MemoryLog memory;
};
} // namespace

TEST_F(LogStreamTests, ALogBeginsWithAHeaderAndEndsWithAClosingLine)
{
    const Sp<RecordingStream> sink(new RecordingStream);
    LogStream log(&fixedTime, Sp<IO::Stream>(sink), LogStreamLevel::Debug, "A", String(), "P\xC3\xA9");
    log.Close();
    log.Close(); // no effect
    const std::string banners = Padded("| Author  : A", ' ', '|') + Padded("| Product : P\xC3\xA9", ' ', '|', 257);
    EXPECT_EQ(Header(banners, "", "Debug") + Row(" ", 'S', "Start Log") + Row(" ", 'S', "Close Log") +
                  Padded("\\", '-', '/') + "\r\n",
              WithoutTimes(sink->text));
    EXPECT_TRUE(sink->IsClosed());
}

TEST_F(LogStreamTests, ARowHasSixFields)
{
    const int writes = memory.sink->writes;
    const int flushes = memory.sink->flushes;
    memory.log.Write(channel, "text");
    EXPECT_EQ(Row("c", 'S', "text"), memory.Take());
    EXPECT_EQ(1, memory.sink->writes - writes);
    EXPECT_EQ(1, memory.sink->flushes - flushes);

    const std::string widest(40, 'w');
    memory.log.Write(LogStreamChannel(String(widest)), LogStreamLevel::Critical, -1, "\xE2\x82\xAC\r\nsecond|line ");
    EXPECT_EQ(Row(widest, 'C', "\xE2\x82\xAC\r\nsecond|line ", "$0xFFFFFFFF"), memory.Take());

    memory.log.Write(channel, LogStreamLevel::Critical, "level and text"); // not taken for an error code
    memory.log.Write(channel, 5, "code and text");
    EXPECT_EQ(Row("c", 'C', "level and text") + Row("c", 'S', "code and text", "$0x00000005"), memory.Take());
}

TEST_F(LogStreamTests, AnExceptionGivesTwoCriticalRowsWithItsCode)
{
    memory.log.Write(channel, "text", SocketException(SocketError::ConnectionReset, "Some/File.cpp", 12));
    EXPECT_EQ(Row("c", 'C', "text: The Socket operation failed., location: ", "$0x00002746") +
                  Row("c", 'C', "Some/File.cpp:12", "$0x00002746"),
              memory.Take());
    memory.log.Write(channel, InvalidOperationException("no way", "Some/File.cpp", 12));
    EXPECT_EQ(Row("c", 'C', "no way, location: ") + Row("c", 'C', "Some/File.cpp:12"), memory.Take());
}

TEST_F(LogStreamTests, TheReferenceTimeIsTheClockWhereNoOtherSourceIsGiven)
{
    const Sp<RecordingStream> sink(new RecordingStream);
    const std::int64_t before = DateTime::Now().Ticks();
    const LogStream log{Sp<IO::Stream>(sink)};
    const std::int64_t written = std::stoll(sink->text.substr(sink->text.rfind("|0x") + 1, 18), nullptr, 16);
    EXPECT_TRUE(before <= written && written <= DateTime::Now().Ticks());
}

TEST_F(LogStreamTests, OtherLinesFollowTheWidth)
{
    memory.log.WriteBlank(channel);
    EXPECT_EQ(Padded("|", ' ', '|'), memory.Take());
    memory.log.LineWidth(1024);
    memory.log.WriteSeparator(channel, LogStreamLevel::Critical);
    EXPECT_EQ(Padded("|", '-', '|', 1024), memory.Take());
    memory.log.WriteDump(channel, LogStreamLevel::Standard, "00 01\r\n02");
    EXPECT_EQ("<time> (0x08DF424CD52B4430)c :\r\n00 01\r\n02\r\n", memory.Take());
    EXPECT_THROW(memory.log.LineWidth(1), ArgumentOutOfRangeException);
    memory.log.LineWidth(2);
    memory.log.BackupCount(7);
    memory.log.MaxFileSize(9);
    EXPECT_TRUE(memory.log.LineWidth() == 2 && memory.log.BackupCount() == 7 && memory.log.MaxFileSize() == 9);
}

TEST_F(LogStreamTests, TheFilterComesBeforeEverything)
{
    const LogStreamChannel& noChannel = null;
    const Exception& noFailure = null;
    const String& noText = null;
    memory.log.Write(noChannel, LogStreamLevel::Debug, 0, "filtered");
    memory.log.WriteBlank(noChannel, LogStreamLevel::Debug);
    memory.log.WriteSeparator(noChannel, LogStreamLevel::Debug);
    memory.log.WriteDump(noChannel, LogStreamLevel::Debug, "filtered");
    ExpectEachThrows<ArgumentNullException>(
        {[&] { memory.log.Write(noChannel, "text"); }, [&] { memory.log.WriteBlank(noChannel); },
         [&] { memory.log.WriteSeparator(noChannel, LogStreamLevel::Standard); },
         [&] { memory.log.Write(channel, noText); }, [&] { memory.log.Write(channel, "text", noFailure); },
         [&] { memory.log.Write(channel, noText, Exception("text")); }, [&] { memory.log.Write(channel, noFailure); },
         [&] { memory.log.SetRefTime(nullptr); },
         [&] { memory.log.WriteDump(noChannel, LogStreamLevel::Standard, "text"); },
         [&] { memory.log.WriteDump(channel, LogStreamLevel::Standard, null); }});
    EXPECT_THROW(memory.log.Write(channel, LogStreamLevel(0), "text"), ArgumentException);
    EXPECT_EQ("", memory.Take());
}

TEST_F(LogStreamTests, AChangeOfLevelIsARowOfTheOldLevel)
{
    memory.log.SetLevel(LogStreamLevel::Standard);
    EXPECT_EQ("", memory.Take());
    memory.log.SetLevel(LogStreamLevel::Critical);
    EXPECT_EQ(Row(" ", 'S', "--------- Change log stream level from Standard to Critical ---------"), memory.Take());
    memory.log.SetLevel(LogStreamLevel::Debug); // Critical lets no row at Standard pass
    EXPECT_EQ("", memory.Take());
    EXPECT_TRUE(memory.log.GetLevel() == LogStreamLevel::Debug);
    EXPECT_THROW(memory.log.SetLevel(LogStreamLevel(0)), ArgumentException);
}

TEST_F(LogStreamTests, ASecondRunGoesOnInTheSameFile)
{
    LogStream(&fixedTime, folder.Path("Client.log")).Write(channel, "first");
    const std::string start = FileHeader(folder, "Client.log") + Row(" ", 'S', "Start Client.log");
    const std::string firstRun = start + Row("c", 'S', "first");
    EXPECT_EQ(firstRun, WithoutTimes(folder.Read("Client.log"))); // no closing line without Close
    LogStream second(&fixedTime, folder.Path("Client.log"));
    second.Close();
    EXPECT_EQ(firstRun + start + Row(" ", 'S', "Close Client.log") + Padded("\\", '-', '/') + "\r\n",
              WithoutTimes(folder.Read("Client.log")));
    EXPECT_THROW(second.Write(channel, "late"), ObjectClosedException);
}

TEST_F(LogStreamTests, WhatCannotBeOpenedLeavesTheConstructor)
{
    const String path = folder.Path("a.log");
    ExpectEachThrows<ArgumentNullException>({[&] { LogStream(nullptr, path); },
                                             [&] { LogStream(path, LogStreamLevel::Debug, null, "c", "p"); },
                                             [&] { LogStream(path, LogStreamLevel::Debug, "a", null, "p"); },
                                             [&] { LogStream(path, LogStreamLevel::Debug, "a", "c", null); }});
    EXPECT_FALSE(folder.Has("a.log")); // what is refused leaves no file
    EXPECT_THROW(LogStream(folder.Path("a.log"), LogStreamLevel(0)), ArgumentException);
}

TEST_F(LogStreamTests, AFileIsSplitByTheRowThatPassesTheLimit)
{
    constexpr int limit = 5242880;
    folder.Write("c.log", std::string(5000000, 'x')); // of an earlier run: its bytes count
    LogStream log(&fixedTime, folder.Path("c.log"));
    const std::string start = folder.Read("c.log").substr(5000000 + FileHeader(folder, "c.log").size());
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
    EXPECT_TRUE(fresh.ends_with(Padded(lastHeaderLine, '-', '|', 100))); // no "Start" row
    log.WriteBlank(channel);
    EXPECT_EQ(fresh + blank, folder.Read("c.log"));
    log.MaxFileSize(0);
    log.WriteBlank(channel);
    EXPECT_EQ(fresh + blank + blank, folder.Read("c.bak")); // the older one is gone
}

TEST_F(LogStreamTests, AFailedSplitReachesTheCallerWhileTheFileIsOpenAndElseEndsTheLogInSilence)
{
    LogStream log(folder.Path("c.log"));
    folder.Write("c.bak1", "old");
    folder.MakeFolder("c.bak2"); // in the way of c.bak1
    folder.MakeFolder("c.bak");
    log.BackupCount(3);
    log.MaxFileSize(0);
    EXPECT_THROW(log.Write(channel, "row"), ArgumentException);
    EXPECT_TRUE(folder.Read("c.log").ends_with("|row|\r\n")); // the row is there, "Error splitting" is not
    log.BackupCount(1);                                       // the file is closed before it meets c.bak
    EXPECT_NO_THROW(log.Write(channel, "last"));
    EXPECT_TRUE(folder.Read("c.log").ends_with("|last|\r\n"));
    EXPECT_THROW(log.Write(channel, "next"), ObjectClosedException);
    EXPECT_NO_THROW(log.Close());

    LogStream ended(folder.Path("c.log"));
    ended.BackupCount(1);
    ended.MaxFileSize(0);
    EXPECT_NO_THROW(ended.Close()); // by the split after its last row
}

TEST_F(LogStreamTests, RowsOfTwoThreadsStayWholeWhileTheFileIsSplit)
{
    constexpr int rowsOfEach = 5000;
    constexpr int files = 50;
    LogStream log(&fixedTime, folder.Path("c.log"));
    log.BackupCount(files);
    log.MaxFileSize(rowsOfEach * 7); // a row has about 115 characters: 33 files
    const auto write = [&log](const char* name)
    {
        for (int i = 0; i < rowsOfEach; ++i)
        {
            log.Write(LogStreamChannel(name), String(std::to_string(i)));
        }
    };
    std::thread other(write, "b");
    write("a");
    other.join();

    const std::regex whole(R"(\n\|[^|]{25,27}\|0x08DF424CD52B4430\|([ab] {39}\|S\| {11}\|\d+)\|\r)");
    std::multiset<std::string> rows;
    int fileCount = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path().Utf8()))
    {
        const std::string text = folder.Read(entry.path().filename().string());
        for (std::sregex_iterator row(text.begin(), text.end(), whole), end; row != end; ++row)
        {
            rows.insert((*row)[1]);
        }
        ++fileCount;
    }
    EXPECT_TRUE(fileCount > 20 && fileCount < files) << fileCount; // none was deleted
    EXPECT_EQ(2 * rowsOfEach, std::ssize(rows));
    EXPECT_EQ(2 * rowsOfEach, std::ssize(std::set<std::string>(rows.begin(), rows.end())));
}

TEST(LogFrontTests, AChannelHasANameOf1To40Characters)
{
    const String widest(char32(0xE9), 40); // characters count, not bytes
    EXPECT_EQ(widest, LogStreamChannel(widest).ToString());
    ExpectEachThrows<ArgumentException>(
        {[] { LogStreamChannel(String(char32('x'), 41)); }, [] { LogStreamChannel(""); }});
    EXPECT_THROW(LogStreamChannel(static_cast<const String&>(null)), ArgumentNullException);
}

TEST(LogFrontTests, AStreamPassesRowsUpToTheNumberOfItsLevel)
{
    struct SilentStream : public ILogStream
    {
    } stream;
    EXPECT_TRUE(stream.GetLevel() == LogStreamLevel::Standard);
    using Case = std::tuple<int, const char*, const char*>;
    for (const auto& [number, name, passed] : {Case{1, "Critical", "C---"}, Case{2, "Standard", "CS--"},
                                               Case{3, "Debug", "CSD-"}, Case{255, "None", "CSDN"}})
    {
        const LogStreamLevel level(number);
        EXPECT_EQ(name, level.ToString().Utf8());
        stream.SetLevel(level);
        std::string found;
        for (const int row : {1, 2, 3, 255}) // the largest number is the loudest level
        {
            found += stream.IsEnabled(LogStreamLevel(row)) ? LogStreamLevel(row).ToString().Utf8().substr(0, 1) : "-";
        }
        EXPECT_EQ(passed, found);
    }
    EXPECT_TRUE(LogStreamLevel() == LogStreamLevel::None);
    EXPECT_THROW(LogStreamLevel(0).ToString(), ArgumentException);
}
