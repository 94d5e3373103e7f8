#include <Core/System/DateTime.h>

#include <Core/System/ArgumentNullException.h>
#include <Core/System/ArgumentOutOfRangeException.h>
#include <Core/System/Checks.h>

#include <Platform/Calendar.h>
#include <Platform/Clock.h>

#include <array>
#include <chrono>
#include <string>

namespace Tesmo::System
{
namespace
{
constexpr std::int64_t TicksPerSecond = TimeSpan::TicksPerSecond;
constexpr std::int64_t EpochSeconds = 62135596800; // from the start of year 1 to that of 1970

std::int64_t MomentTicks(const Platform::ClockReading& reading)
{
    return (reading.seconds + EpochSeconds) * TicksPerSecond + reading.ticks;
}

/// UTC seconds since 1970 of local seconds since 1970. The zone's offset is known for UTC moments only, so it is looked
/// up twice: the second time at the right moment, unless the offset changes within the hour.
std::int64_t UtcOfLocal(std::int64_t local)
{
    std::int64_t utc = local;
    for (int round = 0; round < 2; ++round)
    {
        utc = local - (Platform::CalendarSeconds(Platform::LocalFields(utc)) - utc);
    }
    return utc;
}

bool IsDate(int year, int month, int day)
{
    using namespace std::chrono;
    // The range comes first: the calendar keeps months and days in 8 bits.
    return year >= 1 && year <= 9999 && month >= 1 && month <= 12 && day >= 1 && day <= 31 &&
           year_month_day(std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                          std::chrono::day(static_cast<unsigned>(day)))
               .ok();
}

bool IsTime(int hour, int minute, int second, int millisecond)
{
    return hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60 && millisecond >= 0 &&
           millisecond < 1000;
}

/// Platforms print years below 1000 by "%Y" differently, so the year is put into the pattern as four digits.
std::string WithYear(std::string pattern, int year)
{
    const std::string digits = std::to_string(10000 + year).substr(1);
    for (std::size_t at = 0; (at = pattern.find('%', at)) != pattern.npos; at += 2)
    {
        if (pattern.compare(at, 2, "%Y") == 0)
        {
            pattern.replace(at, 2, digits);
        }
    }
    return pattern;
}

String PrintFields(const std::tm& fields, const char* pattern)
{
    std::array<char, 128> usual{};
    if (const std::size_t size = std::strftime(usual.data(), usual.size(), pattern, &fields); size > 0)
    {
        return String(std::string(usual.data(), size));
    }
    // No text means too long or empty; a mark at the end of the pattern tells which.
    constexpr std::size_t largest = std::size_t{1} << 20;
    const std::string marked = std::string(pattern) + '.';
    std::string text(1024, '\0');
    std::size_t size = 0;
    while ((size = std::strftime(text.data(), text.size(), marked.c_str(), &fields)) == 0 && text.size() < largest)
    {
        text.resize(text.size() * 4);
    }
    text.resize(size == 0 ? 0 : size - 1);
    return String(std::move(text));
}
} // namespace

DateTime::DateTime(long long utcTicks) : DateTime(utcTicks, DateTimeKind::Unspecified) {}

DateTime::DateTime(long long utcTicks, DateTimeKind fieldsKind)
    : ticks(static_cast<std::uint64_t>(utcTicks)),
      kind(fieldsKind)
{
    if (ticks > LastTick)
    {
        throw ArgumentOutOfRangeException(ThrowSite);
    }
}

DateTime::DateTime(int year, int month, int day, DateTimeKind fieldsKind)
    : DateTime(year, month, day, 0, 0, 0, 0, fieldsKind)
{
}

DateTime::DateTime(int year, int month, int day, int hour, int minute, int second, DateTimeKind fieldsKind)
    : DateTime(year, month, day, hour, minute, second, 0, fieldsKind)
{
}

DateTime::DateTime(int year, int month, int day, int hour, int minute, int second, int millisecond,
                   DateTimeKind fieldsKind)
    : kind(fieldsKind)
{
    if (!IsDate(year, month, day) || !IsTime(hour, minute, second, millisecond))
    {
        throw ArgumentOutOfRangeException(ThrowSite);
    }
    std::tm fields{};
    fields.tm_year = year - 1900;
    fields.tm_mon = month - 1;
    fields.tm_mday = day;
    fields.tm_hour = hour;
    fields.tm_min = minute;
    fields.tm_sec = second;
    const std::int64_t written = Platform::CalendarSeconds(fields);
    const std::int64_t seconds = kind == DateTimeKind::Local ? UtcOfLocal(written) : written;
    *this = DateTime(MomentTicks({seconds, 0}) + millisecond * TimeSpan::TicksPerMillisecond, kind);
}

DateTime DateTime::Now()
{
    return DateTime(MomentTicks(Platform::ReadClock()), DateTimeKind::Local);
}

DateTime DateTime::UtcNow()
{
    return DateTime(MomentTicks(Platform::ReadClock()), DateTimeKind::Utc);
}

DateTime DateTime::Today()
{
    const std::tm fields = Now().BrokenDown();
    return DateTime(fields.tm_year + 1900, fields.tm_mon + 1, fields.tm_mday, DateTimeKind::Local);
}

int DateTime::Year() const
{
    return BrokenDown().tm_year + 1900;
}

int DateTime::Month() const
{
    return BrokenDown().tm_mon + 1;
}

int DateTime::Day() const
{
    return BrokenDown().tm_mday;
}

int DateTime::Hour() const
{
    return BrokenDown().tm_hour;
}

int DateTime::Minute() const
{
    return BrokenDown().tm_min;
}

int DateTime::Second() const
{
    return BrokenDown().tm_sec;
}

int DateTime::Millisecond() const
{
    return static_cast<int>(Ticks() % TicksPerSecond / TimeSpan::TicksPerMillisecond);
}

System::DayOfWeek DateTime::DayOfWeek() const
{
    return static_cast<System::DayOfWeek>(BrokenDown().tm_wday);
}

int DateTime::DayOfYear() const
{
    return BrokenDown().tm_yday + 1;
}

DateTime DateTime::ToUniversalTime() const
{
    return DateTime(Checked{ticks}, DateTimeKind::Utc);
}

DateTime DateTime::ToLocalTime() const
{
    return DateTime(Checked{ticks}, DateTimeKind::Local);
}

DateTime DateTime::Add(const TimeSpan& span) const
{
    NotNull(span);
    return DateTime(TimeSpan(Ticks()).Add(span).Ticks(), kind);
}

DateTime DateTime::Subtract(const TimeSpan& span) const
{
    NotNull(span);
    return DateTime(TimeSpan(Ticks()).Subtract(span).Ticks(), kind);
}

TimeSpan DateTime::Subtract(const DateTime& other) const
{
    NotNull(other);
    return TimeSpan(Ticks() - other.Ticks());
}

DateTime DateTime::operator+(const TimeSpan& span) const
{
    return Add(span);
}

DateTime DateTime::operator-(const TimeSpan& span) const
{
    return Subtract(span);
}

TimeSpan DateTime::operator-(const DateTime& other) const
{
    return Subtract(other);
}

bool DateTime::operator==(const DateTime& other) const
{
    return !IsNull(other) && ticks == other.ticks;
}

std::strong_ordering DateTime::operator<=>(const DateTime& other) const
{
    return ticks <=> NotNull(other).ticks;
}

String DateTime::ToString() const
{
    return Print("%d/%m/%Y %H:%M:%S");
}

String DateTime::ToString(const String& format) const
{
    NotNull(format);
    return format.IsEmpty() ? ToString() : Print(format.Utf8().c_str());
}

String DateTime::ToString(const String& format, const IFormatProvider&) const
{
    return ToString(format);
}

String DateTime::ToLongDateString() const
{
    return Print("%A %d %B %Y");
}

String DateTime::ToLongTimeString() const
{
    return Print("%H:%M:%S");
}

String DateTime::ToShortDateString() const
{
    return Print("%d/%m/%Y");
}

String DateTime::ToShortTimeString() const
{
    return Print("%H:%M");
}

bool DateTime::Equals(const ValueType& other) const
{
    const DateTime* const moment = IsNull(other) ? nullptr : dynamic_cast<const DateTime*>(&other);
    return moment != nullptr ? moment->ticks == ticks : ValueType::Equals(other);
}

int DateTime::CompareTo(const IComparable& other) const
{
    const DateTime* const moment = IsNull(other) ? nullptr : dynamic_cast<const DateTime*>(&other);
    return moment == nullptr || ticks > moment->ticks ? 1 : ticks < moment->ticks ? -1 : 0;
}

int DateTime::GetHashCode() const
{
    return static_cast<int>(static_cast<std::uint32_t>(ticks) ^ static_cast<std::uint32_t>(ticks >> 32));
}

std::tm DateTime::BrokenDown() const
{
    const std::int64_t unixSeconds = Ticks() / TicksPerSecond - EpochSeconds;
    return kind == DateTimeKind::Local ? Platform::LocalFields(unixSeconds) : Platform::CalendarFields(unixSeconds);
}

String DateTime::Print(const char* pattern) const
{
    constexpr int firstUsualYear = 1000;
    const std::tm fields = BrokenDown();
    const int year = fields.tm_year + 1900;
    return year >= firstUsualYear ? PrintFields(fields, pattern) : PrintFields(fields, WithYear(pattern, year).c_str());
}
} // namespace Tesmo::System
