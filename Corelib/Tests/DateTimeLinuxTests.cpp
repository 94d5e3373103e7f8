#include <Tests/Support/CoreTest.h>

#include <time.h>

class DateTimeLinuxTests : public testing::Test
{
protected:
    ~DateTimeLinuxTests() override
    {
        unsetenv("TZ");
        tzset();
    }
    static void SetZone(const char* zone)
    {
        DateTime::Now().Hour(); // the library's own look at the zone is due once a minute: let it pass first
        setenv("TZ", zone, 1);
        tzset();
    }
};

TEST_F(DateTimeLinuxTests, LocalFieldsFollowTheZone)
{
    SetZone("TST-5:30");
    const DateTime utc(2024, 12, 31, 20, 0, 0, DateTimeKind::Utc);
    EXPECT_EQ("31/12/2024 20:00:00", utc.ToString().Utf8());
    EXPECT_EQ("01/01/2025 01:30:00", utc.ToLocalTime().ToString().Utf8());
    EXPECT_EQ("+0530 TST", utc.ToLocalTime().ToString("%z %Z").Utf8());
    EXPECT_EQ(1, utc.ToLocalTime().DayOfYear());
    EXPECT_EQ(utc.Ticks(), DateTime(2025, 1, 1, 1, 30, 0, DateTimeKind::Local).Ticks());
    EXPECT_EQ("01/01/0001 05:30:00", DateTime(0, DateTimeKind::Local).ToString().Utf8());
}

TEST_F(DateTimeLinuxTests, LocalTimeFindsItsUtcAroundAChangeOfTheClock)
{
    SetZone("CET-1CEST,M3.5.0,M10.5.0/3"); // 2024: 31 March at 2, 27 October at 3
    using Row = std::tuple<int, int, int, int>;
    for (const auto& [month, day, hour, utcHour] :
         {Row{3, 31, 1, 0}, Row{3, 31, 3, 1}, Row{10, 27, 1, 23}, Row{10, 27, 3, 2}, Row{7, 1, 12, 10}})
    {
        const DateTime local(2024, month, day, hour, 0, 0, DateTimeKind::Local);
        EXPECT_EQ(hour, local.Hour()) << month << "/" << day;
        EXPECT_EQ(utcHour, local.ToUniversalTime().Hour()) << month << "/" << day;
    }
}
