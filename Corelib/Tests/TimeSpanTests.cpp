#include <Tests/Support/CoreTest.h>

#include <Core/System/TimeSpan.h>

#include <limits>

using namespace Tesmo;
using namespace Tesmo::System;

TEST(TimeSpanTests, TextHoldsDaysAndMillisecondsOnlyIfThereAreAny)
{
    using Row = std::tuple<TimeSpan, const char*>;
    for (const auto& [span, text] :
         {Row{TimeSpan(0LL), "00:00:00"}, Row{TimeSpan::FromMilliseconds(1500), "00:00:01.500"},
          Row{TimeSpan::FromDays(-1), "-1.00:00:00"}, Row{TimeSpan(0, 0, 0, 0, -7), "-00:00:00.007"},
          Row{TimeSpan(9999LL), "00:00:00"}, Row{TimeSpan(23, 59, 59), "23:59:59"},
          Row{TimeSpan::MinValue, "-10675199.02:48:05.477"}})
    {
        EXPECT_EQ(text, span.ToString().Utf8());
    }
}

TEST(TimeSpanTests, PartsCarryTheSignAndTotalsTheFraction)
{
    const TimeSpan span(-1, -2, -3, -4, -5);
    EXPECT_EQ((std::vector<int>{-1, -2, -3, -4, -5}),
              (std::vector<int>{span.Days(), span.Hours(), span.Minutes(), span.Seconds(), span.Milliseconds()}));
    EXPECT_EQ(TimeSpan(-1, -2, -3, -4).Ticks(), span.Ticks() + 5 * TimeSpan::TicksPerMillisecond);
    EXPECT_EQ(0.5, TimeSpan(5000LL).TotalMilliseconds());
    EXPECT_EQ(1.5, TimeSpan(0, 0, 90).TotalMinutes());
    EXPECT_EQ(-0.25, TimeSpan(-6, 0, 0).TotalDays());
    EXPECT_EQ(1500.0, TimeSpan(0, 25, 0).TotalSeconds());
    EXPECT_EQ(48.0, TimeSpan::FromDays(2).TotalHours());
    EXPECT_EQ(1000000, TimeSpan::FromSeconds(0.1).Ticks()); // to the nearest tick
    EXPECT_EQ(-1, TimeSpan::FromMilliseconds(-0.00006).Ticks());
    EXPECT_EQ(TimeSpan::FromHours(24).Ticks(), TimeSpan::FromMinutes(1440).Ticks());
}

TEST(TimeSpanTests, WhatLeavesTheRangeIsRefused)
{
    EXPECT_THROW(TimeSpan::FromDays(1e8), ArgumentOutOfRangeException);
    EXPECT_THROW(TimeSpan::FromDays(-1e8), ArgumentOutOfRangeException);
    EXPECT_THROW(TimeSpan::FromSeconds(std::numeric_limits<double>::quiet_NaN()), ArgumentOutOfRangeException);
    EXPECT_THROW(TimeSpan(2147483647, 0, 0, 0), ArgumentOutOfRangeException);
    EXPECT_THROW(TimeSpan::MinValue.Negate(), ArgumentOutOfRangeException);
    EXPECT_THROW(TimeSpan::MaxValue + TimeSpan(1LL), ArgumentOutOfRangeException);
    EXPECT_THROW(TimeSpan::MinValue - TimeSpan(1LL), ArgumentOutOfRangeException);
    EXPECT_THROW(TimeSpan::Zero - TimeSpan::MinValue, ArgumentOutOfRangeException);
    EXPECT_EQ(TimeSpan::MaxValue.Ticks(), (TimeSpan(-1LL) - TimeSpan::MinValue).Ticks());
    EXPECT_EQ(TimeSpan::MaxValue.Ticks(), (TimeSpan::MaxValue + TimeSpan::Zero).Ticks());
}

TEST(TimeSpanTests, OperatorsWorkOnTicks)
{
    TimeSpan span(5LL);
    EXPECT_EQ(5, (span++).Ticks());
    EXPECT_EQ(7, (++span).Ticks());
    EXPECT_EQ(7, (span--).Ticks());
    EXPECT_EQ(5, (--span).Ticks());
    EXPECT_EQ(5, (-span).Duration().Ticks());
    EXPECT_TRUE(span < TimeSpan(6LL) && span == TimeSpan(5LL) && !(span == TimeSpan(6LL)));
    EXPECT_TRUE(span.Equals(TimeSpan(5LL)) && !span.Equals(TimeSpan(6LL)));
    EXPECT_EQ((std::vector<int>{1, 0, -1}),
              (std::vector<int>{span.CompareTo(TimeSpan(4LL)), span.CompareTo(span), span.CompareTo(TimeSpan(6LL))}));
    EXPECT_EQ(3, TimeSpan(0x100000002LL).GetHashCode());
}

TEST(TimeSpanTests, TextParses)
{
    EXPECT_EQ(3 * TimeSpan::TicksPerDay, TimeSpan::Parse(" 3 ").Ticks());
    EXPECT_EQ(452400000001, TimeSpan::Parse("12:34:00.0000001").Ticks());
    EXPECT_TRUE(TimeSpan::Parse("-10675199.02:48:05.4775808") == TimeSpan::MinValue);
    TimeSpan result(9LL);
    for (const char* const text : {"", "-", "1:", "1.2", "1:2:", "1:2:3.", "1:2:3.12345678", "1:2:3:4", "+1", "--1"})
    {
        EXPECT_THROW(TimeSpan::Parse(text), FormatException) << text;
        EXPECT_FALSE(TimeSpan::TryParse(text, result)) << text;
    }
    for (const char* const text : {"24:00", "0:60", "0:0:60", "4294967295", "10675199.02:48:05.4775808"})
    {
        EXPECT_THROW(TimeSpan::Parse(text), OverflowException) << text;
    }
    EXPECT_EQ(9, result.Ticks());
}
