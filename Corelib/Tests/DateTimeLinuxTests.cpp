#include <Core/System/DateTime.h>

#include <gtest/gtest.h>

#include <cstdlib>

#include <time.h>

using namespace Tesmo::System;

namespace
{
/// Sets the zone of the process for a test.
class ZoneScope
{
public:
    explicit ZoneScope(const char* zone)
    {
        DateTime::Now().Hour(); // the library's own look at the zone is due once a minute: let it pass first
        setenv("TZ", zone, 1);
        tzset();
    }
    ZoneScope(const ZoneScope&) = delete;
    ZoneScope& operator=(const ZoneScope&) = delete;
    ~ZoneScope()
    {
        unsetenv("TZ");
        tzset();
    }
};
} // namespace

TEST(DateTimeLinuxTests, LocalFieldsFollowTheZone)
{
    const ZoneScope zone("TST-5:30");
    const DateTime utc(2024, 12, 31, 20, 0, 0, DateTimeKind::Utc);
    EXPECT_EQ("31/12/2024 20:00:00", utc.ToString().Utf8());
    EXPECT_EQ("01/01/2025 01:30:00", utc.ToLocalTime().ToString().Utf8());
    EXPECT_EQ("+0530 TST", utc.ToLocalTime().ToString("%z %Z").Utf8());
    EXPECT_EQ(1, utc.ToLocalTime().DayOfYear());
    EXPECT_EQ(utc.Ticks(), DateTime(2025, 1, 1, 1, 30, 0, DateTimeKind::Local).Ticks());
    EXPECT_EQ("01/01/0001 05:30:00", DateTime(0, DateTimeKind::Local).ToString().Utf8());
}

TEST(DateTimeLinuxTests, LocalTimeFindsItsUtcAroundAChangeOfTheClock)
{
    const ZoneScope zone("CET-1CEST,M3.5.0,M10.5.0/3"); // 2024: 31 March at 2, 27 October at 3
    struct Row
    {
        int month, day, hour;
        int utcHour;
    };
    for (const Row& row :
         {Row{3, 31, 1, 0}, Row{3, 31, 3, 1}, Row{10, 27, 1, 23}, Row{10, 27, 3, 2}, Row{7, 1, 12, 10}})
    {
        const DateTime local(2024, row.month, row.day, row.hour, 0, 0, DateTimeKind::Local);
        EXPECT_EQ(row.hour, local.Hour()) << row.month << "/" << row.day;
        EXPECT_EQ(row.utcHour, local.ToUniversalTime().Hour()) << row.month << "/" << row.day;
    }
}
