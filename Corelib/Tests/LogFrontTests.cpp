#include <Tests/Support/CoreTest.h>

#include <Core/LogStream/ILogStream.h>

using namespace Tesmo;
using namespace Tesmo::System;
using namespace Tesmo::System::LogStreams;

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
    using Row = std::tuple<int, const char*, const char*>;
    for (const auto& [number, name, passed] :
         {Row{1, "Critical", "C---"}, Row{2, "Standard", "CS--"}, Row{3, "Debug", "CSD-"}, Row{255, "None", "CSDN"}})
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
