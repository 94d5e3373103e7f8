#include <Tests/Support/CoreTest.h>

#include <Core/System/BoxEnum.h>
#include <Core/System/IO/FileMode.h>
#include <Core/System/Net/Sockets/AddressFamily.h>
#include <Core/System/Threading/ThreadState.h>

using namespace Tesmo;
using namespace Tesmo::System;
using IO::FileMode;
using Net::Sockets::AddressFamily;
using Threading::ThreadState;

namespace
{
enum class Marks
{
    ReadOnly = 1,
    Hidden = 2,
};

constexpr EnumName markNames[] = {{1, "ReadOnly"}, {2, "Hidden"}};

constexpr std::span<const EnumName> EnumNamesOf(Marks)
{
    return markNames;
}

using BoxedMarks = BoxEnum<Marks, FlagsAttribute>;
} // namespace

TEST(EnumTests, ValuesPrintAsNameOrNumber)
{
    EXPECT_EQ("Create", FileMode(FileMode::Create).ToString().Utf8());
    EXPECT_EQ("-7", FileMode(-7).ToString().Utf8());
    EXPECT_TRUE(FileMode(FileMode::Open).IsDefined());
    EXPECT_FALSE(FileMode(7).IsDefined());
}

TEST(EnumTests, FlagsPrintWithTheHighestFirstWhereNamesCoverThem)
{
    using Row = std::tuple<int, const char*, bool>;
    for (const auto& [flags, text, isDefined] :
         {Row{40, "WaitSleepJoin, Unstarted", true}, Row{0, "Running", true}, Row{16, "Stopped", true},
          Row{552, "552", false}, Row{512, "512", false}})
    {
        EXPECT_EQ(text, ThreadState(flags).ToString().Utf8());
        EXPECT_EQ(isDefined, ThreadState(flags).IsDefined()) << flags;
    }
}

TEST(EnumTests, NamesAndNumbersParse)
{
    using Row = std::tuple<const char*, bool, bool, int>;
    for (const auto& [text, ignoreCase, outcome, value] :
         {Row{"Create", false, true, 2}, Row{"create", false, false, 9}, Row{"create", true, true, 2},
          Row{" 42 ", false, true, 42}, Row{"", false, false, 9}})
    {
        FileMode mode(9);
        EXPECT_EQ(outcome, mode.TryParse(text, ignoreCase, mode)) << text;
        EXPECT_EQ(value, mode.Value()) << text;
    }
    FileMode mode(9);
    EXPECT_FALSE(mode.TryParse(null, false, mode));
    EXPECT_THROW(mode.TryParse("Open", false, const_cast<FileMode&>(static_cast<const FileMode&>(null))),
                 ArgumentNullException);
}

TEST(EnumTests, FlagsParseAsListOfNames)
{
    using Row = std::tuple<const char*, bool, int>;
    for (const auto& [text, outcome, value] :
         {Row{"Unstarted, WaitSleepJoin", true, 40}, Row{" Stopped ", true, 16}, Row{"40", true, 40},
          Row{"Stopped,Nothing,Background", false, 20}, Row{"Stopped,8", false, 16}, Row{"stopped", false, 0},
          Row{"", false, 0}})
    {
        ThreadState state(63);
        EXPECT_EQ(outcome, state.TryParse(text, false, state)) << text;
        EXPECT_EQ(value, state.Value()) << text;
    }
}

TEST(EnumTests, ComparisonStaysWithinTheClass)
{
    const FileMode create(FileMode::Create);
    EXPECT_TRUE(create.Equals(FileMode(2)));
    EXPECT_FALSE(create.Equals(ThreadState(2)));
    EXPECT_FALSE(create.Equals(null));
    EXPECT_LT(create.CompareTo(FileMode(3)), 0);
    EXPECT_EQ(1, create.CompareTo(null));
    EXPECT_TRUE(create < FileMode::Open);
    EXPECT_TRUE(create != FileMode(FileMode::Open));
    EXPECT_EQ(2, create.GetHashCode());
}

TEST(EnumTests, PlainEnumerationsBoxByTheirMark)
{
    EXPECT_EQ("InterNetwork", AddressFamily(AddressFamily::InterNetwork).ToString().Utf8());
    EXPECT_EQ("3", AddressFamily(3).ToString().Utf8());
    EXPECT_EQ("0", BoxedMarks(static_cast<Marks>(0)).ToString().Utf8());
    EXPECT_FALSE(BoxedMarks(static_cast<Marks>(0)).IsDefined());
    EXPECT_TRUE(BoxedMarks(static_cast<Marks>(3)).IsDefined());
    EXPECT_EQ("Hidden, ReadOnly", BoxedMarks(static_cast<Marks>(3)).ToString().Utf8());
    EXPECT_EQ("7", BoxedMarks(static_cast<Marks>(7)).ToString().Utf8());
    AddressFamily family(0);
    EXPECT_TRUE(AddressFamily::TryParse("internetwork", true, family));
    EXPECT_TRUE(family == AddressFamily::InterNetwork);
    EXPECT_FALSE(AddressFamily::TryParse("Unspecified, InterNetwork", true, family));
    BoxedMarks marks;
    EXPECT_TRUE(BoxedMarks::TryParse("ReadOnly,Hidden", false, marks));
    EXPECT_EQ(3, marks.ToInt32());
    EXPECT_TRUE(marks.Equals(BoxedMarks(static_cast<Marks>(3))));
}
