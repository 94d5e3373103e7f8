#include <Tests/Support/CoreTest.h>

#include <Core/System/TimeSpan.h>

#include <limits>

using namespace Tesmo;
using namespace Tesmo::System;

TEST(TimeSpanTests, TextHoldsDaysAndMillisecondsOnlyIfThereAreAny)
{
    EXPECT_EQ("00:00:00", TimeSpan(0LL).ToString().Utf8());
    EXPECT_EQ("00:00:01.500", TimeSpan::FromMilliseconds(1500).ToString().Utf8());
    EXPECT_EQ("-1.00:00:00", TimeSpan::FromDays(-1).ToString().Utf8());
    EXPECT_EQ("-00:00:00.007", TimeSpan(0, 0, 0, 0, -7).ToString().Utf8());
    EXPECT_EQ("00:00:00", TimeSpan(9999LL).ToString().Utf8());
    EXPECT_EQ("23:59:59", TimeSpan(23, 59, 59).ToString().Utf8());
    EXPECT_EQ("-10675199.02:48:05.477", TimeSpan(TimeSpan::MinValue).ToString().Utf8());
}

TEST(TimeSpanTests, PartsCarryTheSignAndTotalsTheFraction)
{
    const TimeSpan span(-1, -2, -3, -4, -5);
    EXPECT_EQ((std::vector<int>{-1, -2, -3, -4, -5}),
              (std::vector<int>{span.Days(), span.Hours(), span.Minutes(), span.Seconds(), span.Milliseconds()}));
    EXPECT_EQ(0.5, TimeSpan(5000LL).TotalMilliseconds());
    EXPECT_EQ(1.5, TimeSpan(0, 0, 90).TotalMinutes());
    EXPECT_EQ(-0.25, TimeSpan(-6, 0, 0).TotalDays());
    EXPECT_EQ(1500.0, TimeSpan(0, 25, 0).TotalSeconds());
    EXPECT_EQ(48.0, TimeSpan::FromDays(2).TotalHours());
}

TEST(TimeSpanTests, UnitsRoundToTheNearestTick)
{
    EXPECT_EQ(1000000, TimeSpan::FromSeconds(0.1).Ticks());
    EXPECT_EQ(-1, TimeSpan::FromMilliseconds(-0.00006).Ticks());
    EXPECT_EQ(36000000000, TimeSpan::FromMinutes(60).Ticks());
    EXPECT_EQ(TimeSpan::TicksPerDay, TimeSpan::FromHours(24).Ticks());
    EXPECT_EQ(7, TimeSpan::FromTicks(7).Ticks());
}

TEST(TimeSpanTests, WhatLeavesTheRangeIsRefused)
{
    EXPECT_THROW(TimeSpan::FromDays(1e8), ArgumentOutOfRangeException);
    EXPECT_THROW(TimeSpan::FromDays(-1e8), ArgumentOutOfRangeException);
    EXPECT_THROW(TimeSpan::FromSeconds(std::numeric_limits<double>::quiet_NaN()), ArgumentOutOfRangeException);
    EXPECT_THROW(TimeSpan(2147483647, 0, 0, 0), ArgumentOutOfRangeException);
    EXPECT_THROW(TimeSpan::MinValue.Negate(), ArgumentOutOfRangeException);
    EXPECT_THROW(TimeSpan::MinValue.Duration(), ArgumentOutOfRangeException);
    EXPECT_THROW(TimeSpan::MaxValue + TimeSpan(1LL), ArgumentOutOfRangeException);
    EXPECT_THROW(TimeSpan::MinValue - TimeSpan(1LL), ArgumentOutOfRangeException);
    EXPECT_THROW(TimeSpan::Zero - TimeSpan::MinValue, ArgumentOutOfRangeException);
    EXPECT_EQ(TimeSpan::MaxValue.Ticks(), (TimeSpan(-1LL) - TimeSpan::MinValue).Ticks());
    TimeSpan last(TimeSpan::MaxValue);
    EXPECT_THROW(++last, ArgumentOutOfRangeException);
    EXPECT_THROW(TimeSpan::Zero.Add(null), ArgumentNullException);
}

TEST(TimeSpanTests, OperatorsWorkOnTicks)
{
    TimeSpan span(5LL);
    EXPECT_EQ(5, (span++).Ticks());
    EXPECT_EQ(7, (++span).Ticks());
    EXPECT_EQ(7, (span--).Ticks());
    EXPECT_EQ(-6, (-span).Ticks());
    EXPECT_TRUE(TimeSpan(1LL) < TimeSpan(2LL));
    EXPECT_TRUE(TimeSpan(2LL) == TimeSpan(2LL));
    EXPECT_EQ(1, span.CompareTo(null));
    EXPECT_FALSE(span.Equals(null));
    EXPECT_EQ(6, span.GetHashCode());
}

TEST(TimeSpanTests, TextParses)
{
    using Row = std::tuple<const char*, std::int64_t>;
    for (const auto& [text, ticks] :
         {Row{"00:00:00", 0}, Row{" 3 ", 3 * TimeSpan::TicksPerDay}, Row{"-1.00:00:00", -TimeSpan::TicksPerDay},
          Row{"00:00:01.5", 15000000}, Row{"00:00:00.0000001", 1}, Row{"12:34", 452400000000},
          Row{"-10675199.02:48:05.4775808", std::numeric_limits<std::int64_t>::min()}})
    {
        EXPECT_EQ(ticks, TimeSpan::Parse(text).Ticks()) << text;
    }
    TimeSpan result(9LL);
    for (const char* const text :
         {"", "-", "1:", "1.2", "1:2:", "1:2:3.", "1:2:3.12345678", "1:2:3:4", "+1", "--1", "x", "-99999999999"})
    {
        EXPECT_THROW(TimeSpan::Parse(text), FormatException) << text;
        EXPECT_FALSE(TimeSpan::TryParse(text, result)) << text;
    }
    for (const char* const text : {"24:00", "0:60", "0:0:60", "4294967295", "10675199.02:48:05.4775808"})
    {
        EXPECT_THROW(TimeSpan::Parse(text), OverflowException) << text;
        EXPECT_FALSE(TimeSpan::TryParse(text, result)) << text;
    }
    EXPECT_FALSE(TimeSpan::TryParse(null, result));
    EXPECT_EQ(9, result.Ticks());
    EXPECT_THROW(TimeSpan::Parse(null), ArgumentNullException);
}
