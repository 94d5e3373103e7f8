// What a stack looks like where symbols are at hand: every build on Linux has them.

#include <Tests/Support/CoreTest.h>

#include <Core/System/Delegate.h>
#include <Core/System/Diagnostics/StackTrace.h>

#include <regex>
#include <sstream>
#include <thread>

using namespace Tesmo;
using namespace Tesmo::System;
using namespace Tesmo::System::Diagnostics;

namespace Sample
{
constexpr const char* ThisFile = "Corelib/Tests/StackTraceLinuxTests.cpp";
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

TEST(StackTraceLinuxTests, AReportBeginsWithTheFunctionThatThrew)
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

TEST(StackTraceLinuxTests, ACopyReportsTheStackOfItsOriginalOnAnyThread)
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

TEST(StackTraceLinuxTests, DelegatesAreLeftOut)
{
    Sample::Observer observer;
    const Action<> action(observer, &Sample::Observer::TakeTrace);
    action.Invoke();

    const std::string text = Sample::lastTrace->ToString().Utf8();
    EXPECT_EQ(text.find("   at Sample::Observer::TakeTrace() in "), 0u) << text;
    EXPECT_NE(text.find("StackTraceLinuxTests_DelegatesAreLeftOut_Test::TestBody() in "), std::string::npos) << text;
    EXPECT_EQ(text.find("Delegate<"), std::string::npos) << text;
    EXPECT_EQ(text.find("Tesmo::Fp<"), std::string::npos) << text;
}

TEST(StackTraceLinuxTests, SkipsFromTheTopOrFromAMethod)
{
    const std::string here = "StackTraceLinuxTests_SkipsFromTheTopOrFromAMethod_Test::TestBody()";
    EXPECT_EQ(Sample::TakesFrame(0).GetMethod().Utf8(), "Sample::TakesFrame(int)");
    EXPECT_TRUE(Sample::TakesFrame(0).GetFileName().EndsWith(Sample::ThisFile));
    EXPECT_EQ(Sample::TakesFrame(1).GetMethod().Utf8(), here);

    const Sp<StackFrame> below = Sample::TakesTrace("TakesTrace", 1).GetFrame(0);
    EXPECT_EQ(below->GetMethod().Utf8(), here);
    EXPECT_TRUE(below->GetFileName().IsEmpty());
    EXPECT_EQ(Sample::TakesTrace("no such method", 1).GetFrame(0)->GetMethod().Utf8(), here);
}
