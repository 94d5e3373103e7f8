#include "CoreTest.h"

#include <Core/LogStream/ILogStream.h>
#include <Core/System/DateTime.h>

using namespace Tesmo;
using namespace Tesmo::System;
using namespace Tesmo::System::LogStreams;

namespace
{
class RecordingStream : public ILogStream
{
public:
    using ILogStream::Write;
    using ILogStream::WriteBlank;

    void Write(const LogStreamChannel& channel, LogStreamLevel level, int errorCode, const String& message) override
    {
        if (IsEnabled(level))
        {
            rows.push_back(channel.ToString().Utf8() + "|" + level.ToString().Utf8() + "|" + std::to_string(errorCode) +
                           "|" + message.Utf8());
        }
    }
    void WriteBlank(const LogStreamChannel&, LogStreamLevel level) override
    {
        rows.push_back("blank " + level.ToString().Utf8());
    }
    std::int64_t Now() const
    {
        return refTime.load()->RefTime();
    }

    std::vector<std::string> rows;
};

class CodedException : public InvalidOperationException
{
public:
    CodedException() : InvalidOperationException("no way", "Some/File.cpp", 12)
    {
        ErrorCode(10054);
    }
};

class FixedTime : public ILogStreamRefTime
{
public:
    std::int64_t RefTime() const override
    {
        return -7;
    }
};

std::string AsPassed(const LogStreamLevel& streamLevel)
{
    RecordingStream stream;
    stream.SetLevel(streamLevel);
    std::string passed;
    for (const auto constant :
         {LogStreamLevel::Critical, LogStreamLevel::Standard, LogStreamLevel::Debug, LogStreamLevel::None})
    {
        const LogStreamLevel level(constant);
        passed += stream.IsEnabled(level) ? level.ToString().Utf8().substr(0, 1) : "-";
    }
    return passed;
}
} // namespace

TEST(LogFrontTests, AChannelHasANameOf1To40Characters)
{
    EXPECT_EQ("A", LogStreamChannel("A").ToString().Utf8());
    const String widest(char32(0xE9), 40); // characters count, not bytes
    EXPECT_EQ(widest, LogStreamChannel(widest).ToString());
    EXPECT_THROW(LogStreamChannel(String(char32('x'), 41)), ArgumentException);
    EXPECT_THROW(LogStreamChannel(""), ArgumentException);
    EXPECT_THROW(LogStreamChannel(static_cast<const String&>(null)), ArgumentNullException);
}

TEST(LogFrontTests, ALevelPrintsItsNameAndRefusesOtherNumbers)
{
    EXPECT_EQ(255, LogStreamLevel().Value());
    EXPECT_EQ("None", LogStreamLevel().ToString().Utf8());
    EXPECT_EQ("Debug", LogStreamLevel(3).ToString().Utf8());
    EXPECT_TRUE(LogStreamLevel(1) == LogStreamLevel::Critical);
    EXPECT_THROW(LogStreamLevel(0).ToString(), ArgumentException);
    EXPECT_THROW(RecordingStream().Write(LogStreamChannel("c"), LogStreamLevel(0), "text"), ArgumentException);
}

TEST(LogFrontTests, AStreamPassesRowsUpToItsOwnNumber)
{
    EXPECT_EQ("C---", AsPassed(LogStreamLevel::Critical));
    EXPECT_EQ("CS--", AsPassed(LogStreamLevel::Standard));
    EXPECT_EQ("CSD-", AsPassed(LogStreamLevel::Debug));
    EXPECT_EQ("CSDN", AsPassed(LogStreamLevel::None)); // the largest number is the loudest level
    EXPECT_TRUE(RecordingStream().GetLevel() == LogStreamLevel::Standard);
}

TEST(LogFrontTests, TheShortFormsEndInThePrimitiveOnes)
{
    RecordingStream stream;
    const LogStreamChannel channel("c");

    stream.Write(channel, LogStreamLevel::Critical, "level and text"); // not taken for an error code
    stream.Write(channel, 5, "code and text");
    stream.Write(channel, "text");
    stream.WriteBlank(channel);
    stream.Write(channel, LogStreamLevel::Debug, "filtered");

    const std::vector<std::string> expected = {"c|Critical|0|level and text", "c|Standard|5|code and text",
                                               "c|Standard|0|text", "blank Standard"};
    EXPECT_EQ(expected, stream.rows);
}

TEST(LogFrontTests, AnExceptionGivesTwoCriticalRowsWithItsCode)
{
    RecordingStream stream;
    stream.SetLevel(LogStreamLevel::Critical);
    const LogStreamChannel channel("c");

    stream.Write(channel, "Trying", CodedException());
    stream.Write(channel, CodedException());

    const std::vector<std::string> expected = {
        "c|Critical|10054|Trying: no way, location: ", "c|Critical|10054|Some/File.cpp:12",
        "c|Critical|10054|no way, location: ", "c|Critical|10054|Some/File.cpp:12"};
    EXPECT_EQ(expected, stream.rows);
    EXPECT_THROW(stream.Write(channel, "text", static_cast<const Exception&>(null)), ArgumentNullException);
}

TEST(LogFrontTests, TheReferenceTimeIsTheClockUntilAnotherSourceIsSet)
{
    RecordingStream stream;
    const std::int64_t before = DateTime::Now().Ticks();
    const std::int64_t now = stream.Now();
    EXPECT_LE(before, now);
    EXPECT_LE(now, DateTime::Now().Ticks());

    const FixedTime fixed;
    stream.SetRefTime(&fixed);
    EXPECT_EQ(-7, stream.Now());
    EXPECT_THROW(stream.SetRefTime(nullptr), ArgumentNullException);
    EXPECT_EQ(-7, stream.Now());
}
