#include <Tests/Support/CoreTest.h>

#include <Core/System/Collections/Generic/List.h>
#include <Core/System/Collections/Generic/Queue.h>
#include <Core/System/Text/Encoding.h>

using namespace Tesmo::System::Collections::Generic;

const String& noText = null;

TEST(ChecksTests, AFailureNamesThePlaceOfTheCheck)
{
    const Sp<String> empty;
    int line = __LINE__ + 2; // of the first row
    const std::function<void()> actions[] = {
        [] { NotNull(noText); },
        [] { NotNull(static_cast<const char*>(nullptr)); },
        [] { NotNull(static_cast<int String::*>(nullptr)); },
        [&empty] { NotEmpty(empty); },
        [] { NotEmpty(static_cast<const Sp<String>&>(null)); },
        [] { NotNegative(-1); },
        [] { CheckIndex(3, 3); },
        [] { CheckIndex(-1, 3); },
        [] { CheckRange(2, 2, 3); },
        [] { CountFrom(4, 3); },
        [] { Int32::Parse("x"); },
        [] { Double::Parse("x"); },
    };
    for (const std::function<void()>& action : actions)
    {
        EXPECT_EQ(std::pair(String(__FILE__), line++), std::pair(FailureOf(action).File(), FailureOf(action).Line()));
    }
}

TEST(ChecksTests, AFailureOfAnOperationNamesItsFile)
{
    const std::pair<const char*, std::function<void()>> rows[] = {
        {"/String.cpp", [] { String(static_cast<const char*>(nullptr)); }},
        {"/StringSearch.cpp", [] { String().IndexOf('a', 1); }},
        {"/Encoding.cpp", [] { Text::Encoding::UTF8()->GetBytes(noText); }},
        {"/Version.cpp", [] { Version::Parse("1.x"); }},
        {"/List.h", [] { List<String>().Add(null); }},
        {"/Queue.h", [] { Queue<String>().Dequeue(); }},
        {"/Array.h", [] { Array<String>(1)[1]; }},
    };
    for (const auto& [file, action] : rows)
    {
        EXPECT_TRUE(FailureOf(action).File().EndsWith(file)) << FailureOf(action).File().Utf8();
    }
}
