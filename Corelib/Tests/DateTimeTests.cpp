#include <Tests/Support/CoreTest.h>

constexpr long long Epoch = 621355968000000000; // ticks at the start of 1970
constexpr long long Last = 3155378975999999999; // of the year 9999
TEST(DateTimeTests, TicksHaveBounds)
{
    ExpectTexts({TextRow{"01/01/0001 00:00:00", DateTime(0).ToString()},
                 TextRow{"31/12/9999 23:59:59", DateTime(Last).ToString()}});
    EXPECT_EQ(0, DateTime::MinValue.Ticks());
    EXPECT_EQ(DateTime::MaxValue.Ticks(), DateTime(9999, 12, 31, 23, 59, 59, 999).Ticks() + 9999);
    ExpectEachThrows<ArgumentOutOfRangeException>({[] { DateTime(Last + 1); }, [] { DateTime(-1); },
                                                   [] { DateTime(Last) + TimeSpan(1LL); },
                                                   [] { DateTime(0) - TimeSpan(1LL); }});
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
    using Row = std::array<int, 7>;
    for (const auto& [year, month, day, hour, minute, second, millisecond] :
         {Row{2023, 2, 29}, Row{0, 1, 1}, Row{10000, 1, 1}, Row{2000, 13, 1}, Row{2000, 257, 1}, Row{2000, 1, 0},
          Row{2000, 1, 257}, Row{2000, 1, 1, 24}, Row{2000, 1, 1, -1}, Row{2000, 1, 1, 0, 60}, Row{2000, 1, 1, 0, -1},
          Row{2000, 1, 1, 0, 0, 60}, Row{2000, 1, 1, 0, 0, -1}, Row{2000, 1, 1, 0, 0, 0, 1000},
          Row{2000, 1, 1, 0, 0, 0, -1}})
    {
        EXPECT_THROW(DateTime(year, month, day, hour, minute, second, millisecond), ArgumentOutOfRangeException)
            << day << "/" << month << "/" << year << " " << hour << ":" << minute << ":" << second;
    }
}

TEST(DateTimeTests, TextFormsFollowTheirPatterns)
{
    const DateTime moment(987, 6, 5, 4, 3, 2, DateTimeKind::Utc);
    using Row = TextRow;
    ExpectTexts({Row{"05/06/0987 04:03:02", moment.ToString()}, Row{"Tuesday 05 June 0987", moment.ToLongDateString()},
                 Row{"04:03:02", moment.ToLongTimeString()}, Row{"05/06/0987", moment.ToShortDateString()},
                 Row{"04:03", moment.ToShortTimeString()}, Row{"100%Y 0987", moment.ToString("100%%Y %Y")},
                 Row{"15/07/2021 10:30:00", DateTime(2021, 7, 15, 10, 30, 0, DateTimeKind::Local).ToString()},
                 Row{std::string(5000, 'x') + "04", moment.ToString(String(std::string(5000, 'x') + "%H"))}});
    for (const auto& [given, printed] : {std::pair(5000, 5000), {(1 << 20) - 2, (1 << 20) - 2}, {(1 << 20) - 1, 0}})
    {
        EXPECT_EQ(printed, moment.ToString(String(char32('x'), given)).Length()); // up to 1 MiB with its end
    }
}

TEST(DateTimeTests, NowCountsUtcAndReadsLocal)
{
    const std::time_t before = std::time(nullptr);
    const DateTime now = DateTime::Now();
    const DateTime utc = DateTime::UtcNow();
    const std::time_t after = std::time(nullptr);
    EXPECT_TRUE(now.Kind() == DateTimeKind::Local && now.ToUniversalTime().Kind() == DateTimeKind::Utc);
    EXPECT_TRUE(utc.Kind() == DateTimeKind::Utc && utc.ToLocalTime().Kind() == DateTimeKind::Local);
    EXPECT_LE(now.Ticks(), utc.Ticks());
    EXPECT_GE((now.Ticks() - Epoch) / TimeSpan::TicksPerSecond, before - 1); // time() may run a clock tick behind
    EXPECT_LE((utc.Ticks() - Epoch) / TimeSpan::TicksPerSecond, after + 1);
    EXPECT_EQ("00:00:00", DateTime::Today().ToLongTimeString().Utf8());
    const double sinceMidnight = (now - DateTime::Today()).TotalHours();
    EXPECT_TRUE(sinceMidnight > -1 && sinceMidnight < 26) << sinceMidnight; // a day may have 25 hours, or end just now
}

TEST(DateTimeTests, OnlyTheTicksCompare)
{
    const DateTime moment(Epoch, DateTimeKind::Utc);
    const DateTime less(Epoch - 1);
    const DateTime more(Epoch + 1);
    EXPECT_TRUE(moment == DateTime(Epoch, DateTimeKind::Local) && moment.Equals(DateTime(Epoch)) && moment < more);
    EXPECT_FALSE(moment.Equals(more) || moment == more);
    EXPECT_TRUE(moment.CompareTo(less) == 1 && moment.CompareTo(DateTime(Epoch)) == 0 && moment.CompareTo(more) == -1);
    EXPECT_TRUE((more - moment).Ticks() == 1 && (moment - TimeSpan(1LL)) == less);
    EXPECT_EQ(DateTimeKind::Utc, (moment + TimeSpan(1LL)).Kind());
    EXPECT_EQ(3, DateTime(0x100000002).GetHashCode());
}
