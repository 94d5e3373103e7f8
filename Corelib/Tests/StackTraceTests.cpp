#include <Tests/Support/CoreTest.h>

#include <Core/System/Diagnostics/StackTrace.h>

using namespace Tesmo;
using namespace Tesmo::System;
using namespace Tesmo::System::Diagnostics;

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
