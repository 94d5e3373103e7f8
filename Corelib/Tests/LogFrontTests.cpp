#include <Tests/Support/CoreTest.h>

#include <Core/LogStream/ILogStream.h>

using namespace Tesmo;
using namespace Tesmo::System;
using namespace Tesmo::System::LogStreams;

namespace
{
/// What a stream is without an operation of its own: it writes nothing.
class SilentStream : public ILogStream
{
};

std::string AsPassed(const LogStreamLevel& streamLevel)
{
    SilentStream stream;
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
    EXPECT_EQ("None", LogStreamLevel().ToString().Utf8());
    EXPECT_EQ("Debug", LogStreamLevel(3).ToString().Utf8());
    EXPECT_TRUE(LogStreamLevel(1) == LogStreamLevel::Critical);
    EXPECT_THROW(LogStreamLevel(0).ToString(), ArgumentException);
}

TEST(LogFrontTests, AStreamPassesRowsUpToItsOwnNumber)
{
    EXPECT_EQ("C---", AsPassed(LogStreamLevel::Critical));
    EXPECT_EQ("CS--", AsPassed(LogStreamLevel::Standard));
    EXPECT_EQ("CSD-", AsPassed(LogStreamLevel::Debug));
    EXPECT_EQ("CSDN", AsPassed(LogStreamLevel::None)); // the largest number is the loudest level
    EXPECT_TRUE(SilentStream().GetLevel() == LogStreamLevel::Standard);
}
