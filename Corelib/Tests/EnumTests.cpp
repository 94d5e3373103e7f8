#include "CoreTest.h"

#include <Core/System/BoxEnum.h>
#include <Core/System/FlagsEnum.h>

using namespace Tesmo;
using namespace Tesmo::System;

namespace
{
class Level : public EnumDeprecated
{
public:
    enum Constant
    {
        Low = 1,
        High = 2,
    };
    Level(Constant constant = Low) : EnumDeprecated(constant) {}
    explicit Level(int number) : EnumDeprecated(number) {}
    const NameTable& Names() const override
    {
        static constexpr EnumName names[] = {{Low, "Low"}, {High, "High"}};
        static const NameTable table = EnumNameTable::Build(names);
        return table;
    }
};

class State : public FlagsEnum
{
public:
    enum Constant
    {
        Running = 0,
        Background = 4,
        Unstarted = 8,
        Stopped = 16,
        WaitSleepJoin = 32,
        Ending = 24,
    };
    State(Constant constant = Running) : FlagsEnum(constant) {}
    explicit State(int number) : FlagsEnum(number) {}
    const NameTable& Names() const override
    {
        static constexpr EnumName names[] = {{Running, "Running"},
                                             {Background, "Background"},
                                             {Unstarted, "Unstarted"},
                                             {Stopped, "Stopped"},
                                             {WaitSleepJoin, "WaitSleepJoin"}};
        static const NameTable table = EnumNameTable::Build(names);
        return table;
    }
};

enum class Family
{
    Unspecified = 0,
    InterNetwork = 2,
};

constexpr EnumName familyNames[] = {{0, "Unspecified"}, {2, "InterNetwork"}};

constexpr std::span<const EnumName> EnumNamesOf(Family)
{
    return familyNames;
}

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

using BoxedFamily = BoxEnum<Family, NoneFlagsAttribute>;
using BoxedMarks = BoxEnum<Marks, FlagsAttribute>;
} // namespace

TEST(EnumTests, ValuesPrintAsNameOrNumber)
{
    EXPECT_EQ("High", Level(Level::High).ToString().Utf8());
    EXPECT_EQ("-7", Level(-7).ToString().Utf8());
    EXPECT_TRUE(Level(Level::Low).IsDefined());
    EXPECT_FALSE(Level(3).IsDefined());
}

TEST(EnumTests, FlagsPrintWithTheHighestFirst)
{
    EXPECT_EQ("WaitSleepJoin, Unstarted", State(40).ToString().Utf8());
    EXPECT_EQ("Running", State(0).ToString().Utf8());
    EXPECT_EQ("Stopped", State(16).ToString().Utf8());
    EXPECT_EQ("41", State(41).ToString().Utf8());
    EXPECT_EQ("1", State(1).ToString().Utf8());
    EXPECT_EQ("0", BoxedMarks(static_cast<Marks>(0)).ToString().Utf8());
}

TEST(EnumTests, FlagsAreDefinedWhereNamesCoverThem)
{
    EXPECT_TRUE(State(0).IsDefined());
    EXPECT_TRUE(State(State::Ending).IsDefined());
    EXPECT_FALSE(State(41).IsDefined());
    EXPECT_FALSE(BoxedMarks(static_cast<Marks>(0)).IsDefined());
    EXPECT_TRUE(BoxedMarks(static_cast<Marks>(3)).IsDefined());
}

TEST(EnumTests, NamesAndNumbersParse)
{
    Level level;
    EXPECT_TRUE(level.TryParse("High", false, level));
    EXPECT_TRUE(level == Level::High);
    EXPECT_FALSE(level.TryParse("low", false, level));
    EXPECT_TRUE(level == Level::High);
    EXPECT_TRUE(level.TryParse("low", true, level));
    EXPECT_TRUE(level == Level::Low);
    EXPECT_TRUE(level.TryParse(" 42 ", false, level));
    EXPECT_EQ(42, level.Value());
    EXPECT_FALSE(level.TryParse("", false, level));
    EXPECT_FALSE(level.TryParse(null, false, level));
    EXPECT_THROW(level.TryParse("Low", false, const_cast<Level&>(static_cast<const Level&>(null))),
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
        State state(63);
        EXPECT_EQ(outcome, state.TryParse(text, false, state)) << text;
        EXPECT_EQ(value, state.Value()) << text;
    }
}

TEST(EnumTests, ComparisonStaysWithinTheClass)
{
    EXPECT_TRUE(Level(Level::High).Equals(Level(2)));
    EXPECT_FALSE(Level(Level::Low).Equals(State(1)));
    EXPECT_FALSE(Level(Level::Low).Equals(null));
    EXPECT_LT(Level(Level::Low).CompareTo(Level(Level::High)), 0);
    EXPECT_EQ(1, Level(Level::Low).CompareTo(null));
    EXPECT_TRUE(Level(Level::Low) < Level::High);
    EXPECT_TRUE(Level(Level::Low) != Level(Level::High));
    EXPECT_EQ(2, Level(Level::High).GetHashCode());
}

TEST(EnumTests, PlainEnumerationsBoxByTheirMark)
{
    EXPECT_EQ("InterNetwork", BoxedFamily(Family::InterNetwork).ToString().Utf8());
    EXPECT_EQ("3", BoxedFamily(static_cast<Family>(3)).ToString().Utf8());
    EXPECT_EQ("Hidden, ReadOnly", BoxedMarks(static_cast<Marks>(3)).ToString().Utf8());
    EXPECT_EQ("7", BoxedMarks(static_cast<Marks>(7)).ToString().Utf8());
    BoxedFamily family;
    EXPECT_TRUE(BoxedFamily::TryParse("internetwork", true, family));
    EXPECT_TRUE(family == Family::InterNetwork);
    EXPECT_FALSE(BoxedFamily::TryParse("Unspecified, InterNetwork", true, family));
    BoxedMarks marks;
    EXPECT_TRUE(BoxedMarks::TryParse("ReadOnly,Hidden", false, marks));
    EXPECT_EQ(3, marks.ToInt32());
    EXPECT_TRUE(marks.Equals(BoxedMarks(static_cast<Marks>(3))));
}
