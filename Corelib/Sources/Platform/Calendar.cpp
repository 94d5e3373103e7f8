#include "Calendar.h"

#include <chrono>

namespace Tesmo::Platform
{
namespace
{
using namespace std::chrono;

constexpr int FirstYear = 1900; // of tm_year

sys_days StartOf(year when)
{
    return when / January / 1;
}
} // namespace

std::tm CalendarFields(std::int64_t unixSeconds)
{
    const sys_seconds point{seconds(unixSeconds)};
    const sys_days day = floor<days>(point);
    const year_month_day date(day);
    const hh_mm_ss time(point - day);
    std::tm fields{};
    fields.tm_sec = static_cast<int>(time.seconds().count());
    fields.tm_min = static_cast<int>(time.minutes().count());
    fields.tm_hour = static_cast<int>(time.hours().count());
    fields.tm_mday = static_cast<int>(static_cast<unsigned>(date.day()));
    fields.tm_mon = static_cast<int>(static_cast<unsigned>(date.month())) - 1;
    fields.tm_year = static_cast<int>(date.year()) - FirstYear;
    fields.tm_wday = static_cast<int>(weekday(day).c_encoding());
    fields.tm_yday = static_cast<int>((day - StartOf(date.year())).count());
    return fields;
}

std::int64_t CalendarSeconds(const std::tm& fields)
{
    const year_month_day date{year(fields.tm_year + FirstYear), month(static_cast<unsigned>(fields.tm_mon + 1)),
                              day(static_cast<unsigned>(fields.tm_mday))};
    const sys_seconds point = sys_days(date) + hours(fields.tm_hour) + minutes(fields.tm_min) + seconds(fields.tm_sec);
    return point.time_since_epoch().count();
}
} // namespace Tesmo::Platform
