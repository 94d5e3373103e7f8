#include <Tests/Support/CoreTest.h>

#include <Core/System/DateTime.h>

#include <ctime>

using namespace Tesmo;
using namespace Tesmo::System;

namespace
{
constexpr long long Epoch = 621355968000000000; // ticks at the start of 1970
constexpr long long Last = 3155378975999999999; // of the year 9999
} // namespace

TEST(DateTimeTests, TicksHaveBounds)
{
    EXPECT_EQ("01/01/0001 00:00:00", DateTime(0).ToString().Utf8());
    EXPECT_EQ("31/12/9999 23:59:59", DateTime(Last).ToString().Utf8());
    EXPECT_THROW(DateTime(Last + 1), ArgumentOutOfRangeException);
    EXPECT_THROW(DateTime(-1), ArgumentOutOfRangeException);
    EXPECT_EQ(0, DateTime::MinValue.Ticks());
    EXPECT_EQ(DateTime::MaxValue.Ticks(), DateTime(9999, 12, 31, 23, 59, 59, 999).Ticks() + 9999);
    EXPECT_THROW(DateTime(DateTime::MaxValue) + TimeSpan(1LL), ArgumentOutOfRangeException);
    EXPECT_THROW(DateTime(0) - TimeSpan(1LL), ArgumentOutOfRangeException);
}

TEST(DateTimeTests, CalendarFieldsAreCheckedAndComeBack)
{
    const DateTime moment(2024, 2, 29, 23, 59, 58, 997);
    const std::vector<int> fields = {moment.Year(),   moment.Month(),  moment.Day(),         moment.Hour(),
                                     moment.Minute(), moment.Second(), moment.Millisecond(), moment.DayOfYear()};
    EXPECT_EQ((std::vector<int>{2024, 2, 29, 23, 59, 58, 997, 60}), fields);
    EXPECT_EQ(DayOfWeek::Thursday, moment.DayOfWeek());
    EXPECT_EQ(DateTimeKind::Unspecified, moment.Kind());
    EXPECT_EQ(Epoch, DateTime(1970, 1, 1).Ticks());
    using Date = std::tuple<int, int, int>;
    for (const auto& [year, month, day] : {Date{2023, 2, 29}, Date{0, 1, 1}, Date{10000, 1, 1}, Date{2000, 13, 1},
                                           Date{2000, 257, 1}, Date{2000, 1, 0}, Date{2000, 1, 257}})
    {
        EXPECT_THROW(DateTime(year, month, day), ArgumentOutOfRangeException) << day << "/" << month << "/" << year;
    }
    using Time = std::tuple<int, int, int, int>;
    for (const auto& [hour, minute, second, millisecond] :
         {Time{24, 0, 0, 0}, Time{-1, 0, 0, 0}, Time{0, 60, 0, 0}, Time{0, -1, 0, 0}, Time{0, 0, 60, 0},
          Time{0, 0, -1, 0}, Time{0, 0, 0, 1000}, Time{0, 0, 0, -1}})
    {
        EXPECT_THROW(DateTime(2000, 1, 1, hour, minute, second, millisecond), ArgumentOutOfRangeException);
    }
}

TEST(DateTimeTests, TextFormsFollowTheirPatterns)
{
    const DateTime moment(987, 6, 5, 4, 3, 2, DateTimeKind::Utc);
    EXPECT_EQ("05/06/0987 04:03:02", moment.ToString().Utf8());
    EXPECT_EQ("Tuesday 05 June 0987", moment.ToLongDateString().Utf8());
    EXPECT_EQ("04:03:02", moment.ToLongTimeString().Utf8());
    EXPECT_EQ("05/06/0987", moment.ToShortDateString().Utf8());
    EXPECT_EQ("04:03", moment.ToShortTimeString().Utf8());
    EXPECT_EQ("100%Y 0987", moment.ToString("100%%Y %Y").Utf8());
    EXPECT_EQ("[0987]", String::Format("[{0:%Y}]", moment).Utf8());
    EXPECT_EQ("15/07/2021 10:30:00", DateTime(2021, 7, 15, 10, 30, 0, DateTimeKind::Local).ToString().Utf8());
    EXPECT_EQ(std::string(5000, 'x') + "00", DateTime(Epoch).ToString(String(std::string(5000, 'x') + "%H")).Utf8());
}

TEST(DateTimeTests, NowCountsUtcAndReadsLocal)
{
    const std::time_t before = std::time(nullptr);
    const DateTime now = DateTime::Now();
    const DateTime utc = DateTime::UtcNow();
    const std::time_t after = std::time(nullptr);
    EXPECT_EQ(DateTimeKind::Local, now.Kind());
    EXPECT_EQ(DateTimeKind::Utc, utc.Kind());
    EXPECT_LE(now.Ticks(), utc.Ticks());
    EXPECT_GE((now.Ticks() - Epoch) / TimeSpan::TicksPerSecond, before - 1); // time() may run a clock tick behind
    EXPECT_LE((utc.Ticks() - Epoch) / TimeSpan::TicksPerSecond, after + 1);
    EXPECT_EQ(DateTimeKind::Utc, now.ToUniversalTime().Kind());
    EXPECT_EQ(DateTimeKind::Local, utc.ToLocalTime().Kind());
    EXPECT_EQ("00:00:00", DateTime::Today().ToLongTimeString().Utf8());
    const double sinceMidnight = (now - DateTime::Today()).TotalHours();
    EXPECT_TRUE(sinceMidnight > -1 && sinceMidnight < 26) << sinceMidnight; // a day may have 25 hours, or end just now
}

TEST(DateTimeTests, OnlyTheTicksCompare)
{
    const DateTime moment(Epoch, DateTimeKind::Utc);
    EXPECT_TRUE(moment == DateTime(Epoch, DateTimeKind::Local));
    EXPECT_TRUE(moment.Equals(DateTime(Epoch)));
    EXPECT_FALSE(moment.Equals(DateTime(Epoch + 1)) || moment == DateTime(Epoch + 1));
    EXPECT_EQ(3, DateTime(0x100000002).GetHashCode());
    EXPECT_TRUE(moment < DateTime(Epoch + 1));
    EXPECT_EQ((std::vector<int>{1, 0, -1}),
              (std::vector<int>{moment.CompareTo(DateTime(Epoch - 1)), moment.CompareTo(DateTime(Epoch)),
                                moment.CompareTo(DateTime(Epoch + 1))}));
    EXPECT_EQ(5, (DateTime(Epoch + 5) - moment).Ticks());
    EXPECT_EQ(Epoch - 5, (moment - TimeSpan(5LL)).Ticks());
    EXPECT_EQ(DateTimeKind::Utc, (moment + TimeSpan(1LL)).Kind());
}
