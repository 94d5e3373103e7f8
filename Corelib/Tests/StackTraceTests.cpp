#include <Tests/Support/CoreTest.h>

#include <Core/System/Delegate.h>
#include <Core/System/Diagnostics/StackTrace.h>

#include <regex>
#include <sstream>

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

[[gnu::noinline]] void ThrowsFromTheDeep(int depth)
{
    if (depth == 0)
    {
        throw Exception(ThrowSite);
    }
    ThrowsFromTheDeep(depth - 1);
    lineOfThrow = 0; // so that no optimiser makes a loop of it
}

/// Its stack is that of another exception, whose constructor does not bear its name.
class Renamed : public Exception
{
public:
    explicit Renamed(const Exception& original) : Exception(original) {}
};

[[gnu::noinline]] void CallsThrower(void (*thrower)())
{
    thrower();
}

std::vector<std::string> LinesOf(const Exception& exception)
{
    std::istringstream report(exception.ToString().Utf8());
    std::vector<std::string> lines;
    for (std::string line; std::getline(report, line);)
    {
        lines.push_back(line);
    }
    return lines;
}

/// The lines of the report of what is thrown, and of one with its stack and another name on another thread.
std::pair<std::vector<std::string>, std::vector<std::string>> ReportsOf(void (*thrower)())
{
    try
    {
        CallsThrower(thrower);
    }
    catch (const Exception& exception)
    {
        return {LinesOf(exception), std::async(std::launch::async, LinesOf, Renamed(exception)).get()};
    }
    return {};
}

struct Observer
{
    [[gnu::noinline]] void TakeTrace()
    {
        text = StackTrace(0, true).ToString().Utf8();
    }

    std::string text;
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
        const auto [lines, renamed] = Sample::ReportsOf(thrower);
        ASSERT_GT(lines.size(), 3u);
        EXPECT_EQ(lines[0].find("Tesmo::System::" + type + ": "), 0u) << lines[0];
        const std::string thrownAt = std::string(Sample::ThisFile) + ":" + std::to_string(Sample::lineOfThrow) + "\r";
        const std::string offset = " \\[0x[0-9A-F]{8}\\] ";
        const std::regex top("   at Sample::Throws" + type + "\\(\\)" + offset + "in " + thrownAt);
        EXPECT_TRUE(std::regex_match(lines[1], top)) << lines[1];
        // an optimiser may leave no constructor above it: then the top frame has two lines, as below
        const std::size_t caller = lines[2].find("CallsThrower") != std::string::npos ? 2 : 3;
        const std::regex below("   at Sample::CallsThrower\\(void \\(\\*\\)\\(\\)\\)" + offset + "in .*" +
                               Sample::ThisFile + ":[0-9]+\r"); // clang puts the build folder before the file
        EXPECT_TRUE(std::regex_match(lines[caller], below)) << lines[caller];

        // no constructor bears the name: the top frame stands at the throw and at its own place
        const auto functionOf = [](const std::string& line) { return line.substr(0, line.find(" in ")); };
        ASSERT_GT(renamed.size(), 3u);
        EXPECT_TRUE(renamed[1].ends_with(" in " + thrownAt)) << renamed[1];
        EXPECT_EQ(functionOf(renamed[1]), functionOf(renamed[2]));
        EXPECT_NE(functionOf(renamed[1]), functionOf(renamed[3]));
    }
}

TEST_F(StackReportTests, ADeepStackIsWholeAndItsCopyToo)
{
    const auto [lines, copied] = Sample::ReportsOf([] { Sample::ThrowsFromTheDeep(200); });
    EXPECT_THAT(lines, testing::Contains(testing::HasSubstr("ADeepStackIsWholeAndItsCopyToo_Test::TestBody()")));
    EXPECT_EQ(std::vector(lines.end() - 150, lines.end()), std::vector(copied.end() - 150, copied.end()));
}

TEST_F(StackReportTests, DelegatesAreLeftOut)
{
    Sample::Observer observer;
    Action<>(observer, &Sample::Observer::TakeTrace).Invoke();
    EXPECT_TRUE(observer.text.starts_with("   at Sample::Observer::TakeTrace() in ")) << observer.text;
    EXPECT_THAT(observer.text, testing::HasSubstr("DelegatesAreLeftOut_Test::TestBody() in "));
    EXPECT_THAT(observer.text,
                testing::Not(testing::AnyOf(testing::HasSubstr("Delegate<"), testing::HasSubstr("Tesmo::Fp<"))));
}

TEST_F(StackReportTests, SkipsFromTheTopOrFromAMethod)
{
    const std::string here = "StackReportTests_SkipsFromTheTopOrFromAMethod_Test::TestBody()";
    EXPECT_EQ(Sample::TakesFrame(0).GetMethod().Utf8(), "Sample::TakesFrame(int)");
    EXPECT_TRUE(Sample::TakesFrame(0).GetFileName().EndsWith(Sample::ThisFile));
    EXPECT_EQ(Sample::TakesFrame(1).GetMethod().Utf8(), here);
    const Sp<StackFrame> below = Sample::TakesTrace("TakesTrace", 1).GetFrame(0);
    EXPECT_EQ(below->GetMethod().Utf8() + below->GetFileName().Utf8(), here);
    EXPECT_EQ(Sample::TakesTrace("no such method", 1).GetFrame(0)->GetMethod().Utf8(), here);
}

TEST(StackTraceTests, AFrameNamesWhatItKnowsAndNoneIsOutOfRange)
{
    ExpectEachThrows<ArgumentOutOfRangeException>(
        {[] { StackTrace(-1, true); }, [] { StackTrace("main", -1, true); }, [] { StackFrame(-1, true); }});
    const StackTrace trace(0, true);
    const std::string lines = trace.ToString().Utf8();
    EXPECT_EQ(trace.GetFrameCount(), std::ranges::count(lines, '\n'));
    EXPECT_THROW(StackTrace(static_cast<const String&>(null), 0, false), ArgumentNullException);
    EXPECT_TRUE(trace.GetFrame(-1) == null && trace.GetFrame(trace.GetFrameCount()) == null);
    EXPECT_EQ(0, StackTrace(Int32::MaxValue, true).GetFrameCount());
    const CallStackEntry known{"a.cpp", 12, "Run()", 48, 3};
    EXPECT_EQ("Run() at 48  in file:line:column a.cpp : 12 : 3", StackFrame(known, true).ToString().Utf8());
    EXPECT_EQ("Run() at <unknown offset>  in file:line:column <filename unknown> : 0 : 0",
              StackFrame(known, false).ToString().Utf8());
    EXPECT_EQ("<unknown method> at <unknown offset>  in file:line:column <filename unknown> : 0 : 0",
              StackFrame(CallStackEntry(), true).ToString().Utf8());
}
