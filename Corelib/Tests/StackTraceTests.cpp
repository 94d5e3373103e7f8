#include <Tests/Support/CoreTest.h>

#include <Core/System/Delegate.h>
#include <Core/System/Diagnostics/StackTrace.h>
#include <Core/System/IO/Path.h>

#include <algorithm>
#include <regex>
#include <sstream>
#include <thread>

using namespace Tesmo;
using namespace Tesmo::System;
using namespace Tesmo::System::Diagnostics;

namespace Sample
{
constexpr const char* ThisFile = "Corelib/Tests/StackTraceTests.cpp";
int lineOfThrow = 0;

[[gnu::noinline]] void ThrowsArgumentNullException()
{
    lineOfThrow = __LINE__ + 1;
    throw ArgumentNullException(ThrowSite);
}

[[gnu::noinline]] void ThrowsException()
{
    lineOfThrow = __LINE__ + 1;
    throw Exception(ThrowSite);
}

[[gnu::noinline]] void CallsThrower(void (*thrower)())
{
    thrower();
}

/// Its stack is that of another exception, whose constructor does not bear its name.
class Renamed : public Exception
{
public:
    explicit Renamed(const Exception& original) : Exception(original) {}
};

[[gnu::noinline]] void ThrowsRenamed()
{
    try
    {
        ThrowsException();
    }
    catch (const Exception& exception)
    {
        throw Renamed(exception);
    }
}

[[gnu::noinline]] void Dive(int depth)
{
    if (depth > 0)
    {
        Dive(depth - 1);
    }
    else
    {
        ThrowsException();
    }
    lineOfThrow = 0; // so that no optimiser makes a loop of it
}

[[gnu::noinline]] void ThrowsFromTheDeep()
{
    Dive(200);
}

std::vector<std::string> LinesOfReport(void (*thrower)())
{
    std::istringstream report;
    try
    {
        CallsThrower(thrower);
    }
    catch (const Exception& exception)
    {
        report.str(exception.ToString().Utf8());
    }
    std::vector<std::string> lines;
    for (std::string line; std::getline(report, line);)
    {
        lines.push_back(line);
    }
    return lines;
}

Sp<StackTrace> lastTrace;

struct Observer
{
    [[gnu::noinline]] void TakeTrace()
    {
        lastTrace.Reset(new StackTrace(0, true));
    }
};

[[gnu::noinline]] StackFrame TakesFrame(int skipFrames)
{
    return StackFrame(skipFrames, true);
}

[[gnu::noinline]] StackTrace TakesTrace(const String& methodName, int skipFrames)
{
    return StackTrace(methodName, skipFrames, false);
}
} // namespace Sample

/// What a stack looks like where symbols are at hand: every build on Linux has them.
class StackReportTests : public testing::Test
{
protected:
    void SetUp() override
    {
        if (IO::Path::DirectorySeparator() != char32('/'))
        {
            GTEST_SKIP() << "Windows cannot read the symbols of this compiler.";
        }
    }
};

TEST_F(StackReportTests, AReportBeginsWithTheFunctionThatThrew)
{
    using Row = std::tuple<void (*)(), std::string>;
    for (const auto& [thrower, type] :
         {Row{Sample::ThrowsArgumentNullException, "ArgumentNullException"}, Row{Sample::ThrowsException, "Exception"}})
    {
        const std::vector<std::string> lines = Sample::LinesOfReport(thrower);
        ASSERT_GT(lines.size(), 3u);
        EXPECT_EQ(lines[0].find("Tesmo::System::" + type + ": "), 0u) << lines[0];
        const std::string place = "in " + std::string(Sample::ThisFile) + ":";
        const std::string offset = " \\[0x[0-9A-F]{8}\\] ";
        const std::regex top("   at Sample::Throws" + type + "\\(\\)" + offset + place +
                             std::to_string(Sample::lineOfThrow) + "\r");
        EXPECT_TRUE(std::regex_match(lines[1], top)) << lines[1];
        // where no constructor stands above it, the top frame has two lines: the throw, and its own place
        const std::size_t caller = lines[2].find("CallsThrower") != std::string::npos ? 2 : 3;
        const std::regex below("   at Sample::CallsThrower\\(void \\(\\*\\)\\(\\)\\)" + offset + "in .*" +
                               Sample::ThisFile + ":[0-9]+\r"); // clang puts the build folder before the file
        EXPECT_TRUE(std::regex_match(lines[caller], below)) << lines[caller];
    }
}

TEST_F(StackReportTests, ACopyReportsTheStackOfItsOriginalOnAnyThread)
{
    ArgumentNullException first;
    try
    {
        Sample::ThrowsArgumentNullException();
    }
    catch (const ArgumentNullException& exception)
    {
        first = exception;
    }
    const ArgumentNullException second = first;
    std::string firstText;
    std::thread other([&] { firstText = first.ToString().Utf8(); });
    const std::string secondText = second.ToString().Utf8();
    other.join();

    EXPECT_EQ(firstText, secondText);
    EXPECT_NE(firstText.find("Sample::ThrowsArgumentNullException()"), std::string::npos) << firstText;
}

TEST_F(StackReportTests, DelegatesAreLeftOut)
{
    Sample::Observer observer;
    const Action<> action(observer, &Sample::Observer::TakeTrace);
    action.Invoke();

    const std::string text = Sample::lastTrace->ToString().Utf8();
    EXPECT_EQ(text.find("   at Sample::Observer::TakeTrace() in "), 0u) << text;
    EXPECT_NE(text.find("StackReportTests_DelegatesAreLeftOut_Test::TestBody() in "), std::string::npos) << text;
    EXPECT_EQ(text.find("Delegate<"), std::string::npos) << text;
    EXPECT_EQ(text.find("Tesmo::Fp<"), std::string::npos) << text;
}

TEST_F(StackReportTests, SkipsFromTheTopOrFromAMethod)
{
    const std::string here = "StackReportTests_SkipsFromTheTopOrFromAMethod_Test::TestBody()";
    EXPECT_EQ(Sample::TakesFrame(0).GetMethod().Utf8(), "Sample::TakesFrame(int)");
    EXPECT_TRUE(Sample::TakesFrame(0).GetFileName().EndsWith(Sample::ThisFile));
    EXPECT_EQ(Sample::TakesFrame(1).GetMethod().Utf8(), here);

    const Sp<StackFrame> below = Sample::TakesTrace("TakesTrace", 1).GetFrame(0);
    EXPECT_EQ(below->GetMethod().Utf8(), here);
    EXPECT_TRUE(below->GetFileName().IsEmpty());
    EXPECT_EQ(Sample::TakesTrace("no such method", 1).GetFrame(0)->GetMethod().Utf8(), here);
}

TEST_F(StackReportTests, TheTopFrameStandsTwiceWhereNoConstructorBearsTheName)
{
    const std::vector<std::string> lines = Sample::LinesOfReport(Sample::ThrowsRenamed);
    ASSERT_GT(lines.size(), 3u);
    const std::string frame = lines[1].substr(0, lines[1].find(" in "));
    EXPECT_EQ(frame + " in " + Sample::ThisFile + ":" + std::to_string(Sample::lineOfThrow) + "\r", lines[1]);
    EXPECT_EQ(frame, lines[2].substr(0, lines[2].find(" in ")));
    EXPECT_NE(frame, lines[3].substr(0, lines[3].find(" in ")));
}

TEST_F(StackReportTests, ADeepStackIsWhole)
{
    const std::vector<std::string> lines = Sample::LinesOfReport(Sample::ThrowsFromTheDeep);
    const auto isTest = [](const std::string& line) { return line.find("ADeepStackIsWhole") != std::string::npos; };
    EXPECT_TRUE(std::any_of(lines.begin(), lines.end(), isTest)) << lines.size() << " lines";
}

TEST(StackTraceTests, ChecksItsArguments)
{
    EXPECT_THROW(StackTrace(-1, true), ArgumentOutOfRangeException);
    EXPECT_THROW(StackTrace("main", -1, true), ArgumentOutOfRangeException);
    EXPECT_THROW(StackTrace(static_cast<const String&>(null), 0, true), ArgumentNullException);
    EXPECT_THROW(StackFrame(-1, true), ArgumentOutOfRangeException);
}

TEST(StackTraceTests, AFrameOutOfRangeIsEmpty)
{
    const StackTrace trace(0, true);
    EXPECT_TRUE(trace.GetFrame(-1) == null);
    EXPECT_TRUE(trace.GetFrame(trace.GetFrameCount()) == null);
    EXPECT_EQ(0, StackTrace(std::numeric_limits<int>::max(), true).GetFrameCount());
}

TEST(StackTraceTests, AFrameNamesWhatItKnows)
{
    using Row = std::tuple<CallStackEntry, bool, std::string>;
    const CallStackEntry known{"a.cpp", 12, "Run()", 48, 3};
    for (const auto& [entry, needFileInfo, text] :
         {Row{known, true, "Run() at 48  in file:line:column a.cpp : 12 : 3"},
          Row{known, false, "Run() at <unknown offset>  in file:line:column <filename unknown> : 0 : 0"},
          Row{{}, true, "<unknown method> at <unknown offset>  in file:line:column <filename unknown> : 0 : 0"}})
    {
        EXPECT_EQ(StackFrame(entry, needFileInfo).ToString().Utf8(), text);
    }
}
