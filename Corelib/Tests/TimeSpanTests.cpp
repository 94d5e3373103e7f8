#include <Tests/Support/CoreTest.h>

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
    EXPECT_EQ((std::vector<double>{0.5, 1500, 1.5, 48, -0.25}),
              (std::vector<double>{TimeSpan(5000LL).TotalMilliseconds(), TimeSpan(0, 25, 0).TotalSeconds(),
                                   TimeSpan(0, 0, 90).TotalMinutes(), TimeSpan::FromDays(2).TotalHours(),
                                   TimeSpan(-6, 0, 0).TotalDays()}));
    EXPECT_EQ(TimeSpan(-1, -2, -3, -4).Ticks(), span.Ticks() + 5 * TimeSpan::TicksPerMillisecond);
    EXPECT_EQ(TimeSpan::FromHours(24).Ticks(), TimeSpan::FromMinutes(1440).Ticks());
    EXPECT_EQ(-1, TimeSpan::FromMilliseconds(-0.00006).Ticks()); // to the nearest tick
}

TEST(TimeSpanTests, OperatorsWorkOnTicksWithinTheRange)
{
    TimeSpan span(5LL);
    EXPECT_TRUE((span++).Ticks() == 5 && (++span).Ticks() == 7 && (span--).Ticks() == 7 && (--span).Ticks() == 5);
    EXPECT_TRUE((-span).Duration() == span && TimeSpan(0x100000002LL).GetHashCode() == 3);
    const TimeSpan less(4LL);
    const TimeSpan more(6LL);
    EXPECT_TRUE(span < more && span == TimeSpan(5LL) && span.Equals(TimeSpan(5LL)));
    EXPECT_FALSE(span == more || span.Equals(more));
    EXPECT_TRUE(span.CompareTo(less) == 1 && span.CompareTo(span) == 0 && span.CompareTo(more) == -1);
    EXPECT_TRUE(TimeSpan(-1LL) - TimeSpan::MinValue == TimeSpan::MaxValue + TimeSpan::Zero);
    ExpectEachThrows<ArgumentOutOfRangeException>(
        {[] { TimeSpan::FromDays(1e8); }, [] { TimeSpan::FromDays(-1e8); }, [] { TimeSpan::FromSeconds(Double::NaN); },
         [] { TimeSpan(2147483647, 0, 0, 0); }, [] { TimeSpan::MinValue.Negate(); },
         [] { TimeSpan::MaxValue + TimeSpan(1LL); }, [] { TimeSpan::MinValue - TimeSpan(1LL); },
         [] { TimeSpan::Zero - TimeSpan::MinValue; }});
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
    for (const char* const text :
         {"24:00", "0:60", "0:0:60", "4294967296", "9999999999:00", "10675199.02:48:05.4775808"})
    {
        EXPECT_THROW(TimeSpan::Parse(text), OverflowException) << text;
    }
    EXPECT_EQ(9, result.Ticks());
    EXPECT_TRUE(TimeSpan::TryParse("0:0:1", result) && result == TimeSpan::FromTicks(TimeSpan::TicksPerSecond));
}
