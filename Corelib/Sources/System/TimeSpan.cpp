#include <Core/System/TimeSpan.h>

#include <Core/System/ArgumentNullException.h>
#include <Core/System/ArgumentOutOfRangeException.h>
#include <Core/System/Checks.h>
#include <Core/System/FormatException.h>
#include <Core/System/OverflowException.h>
#include <Core/System/String.h>

#include "TimeSpanParser.h"

#include <cmath>
#include <limits>

namespace Tesmo::System
{
namespace
{
constexpr std::int64_t Largest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t Smallest = std::numeric_limits<std::int64_t>::min();

std::int64_t Sum(std::int64_t left, std::int64_t right)
{
    if (right > 0 ? left > Largest - right : left < Smallest - right)
    {
        throw ArgumentOutOfRangeException(ThrowSite);
    }
    return left + right;
}

std::int64_t Negated(std::int64_t ticks)
{
    if (ticks == Smallest)
    {
        throw ArgumentOutOfRangeException(ThrowSite);
    }
    return -ticks;
}

/// The sum in milliseconds always fits 64 bits, so one check at the end is enough.
std::int64_t TicksOf(std::int64_t days, std::int64_t hours, std::int64_t minutes, std::int64_t seconds,
                     std::int64_t milliseconds)
{
    const std::int64_t total = ((days * 24 + hours) * 60 + minutes) * 60 * 1000 + seconds * 1000 + milliseconds;
    if (total > Largest / TimeSpan::TicksPerMillisecond || total < Smallest / TimeSpan::TicksPerMillisecond)
    {
        throw ArgumentOutOfRangeException(ThrowSite);
    }
    return total * TimeSpan::TicksPerMillisecond;
}

TimeSpan FromUnits(double value, std::int64_t ticksPerUnit)
{
    constexpr double limit = 9223372036854775808.0; // 2^63
    const double ticks = std::round(value * static_cast<double>(ticksPerUnit));
    if (!(ticks >= -limit && ticks < limit)) // not a number is out of range too
    {
        throw ArgumentOutOfRangeException(ThrowSite);
    }
    return TimeSpan(static_cast<long long>(ticks));
}

double InUnits(std::int64_t ticks, std::int64_t ticksPerUnit)
{
    return static_cast<double>(ticks) / static_cast<double>(ticksPerUnit);
}
} // namespace

TimeSpan::TimeSpan(int hours, int minutes, int seconds) : ticks(TicksOf(0, hours, minutes, seconds, 0)) {}

TimeSpan::TimeSpan(int days, int hours, int minutes, int seconds) : ticks(TicksOf(days, hours, minutes, seconds, 0)) {}

TimeSpan::TimeSpan(int days, int hours, int minutes, int seconds, int milliseconds)
    : ticks(TicksOf(days, hours, minutes, seconds, milliseconds))
{
}

TimeSpan TimeSpan::FromDays(double value)
{
    return FromUnits(value, TicksPerDay);
}

TimeSpan TimeSpan::FromHours(double value)
{
    return FromUnits(value, TicksPerHour);
}

TimeSpan TimeSpan::FromMinutes(double value)
{
    return FromUnits(value, TicksPerMinute);
}

TimeSpan TimeSpan::FromSeconds(double value)
{
    return FromUnits(value, TicksPerSecond);
}

TimeSpan TimeSpan::FromMilliseconds(double value)
{
    return FromUnits(value, TicksPerMillisecond);
}

TimeSpan TimeSpan::FromTicks(long long value)
{
    return TimeSpan(value);
}

int TimeSpan::Days() const
{
    return static_cast<int>(ticks / TicksPerDay);
}

int TimeSpan::Hours() const
{
    return static_cast<int>(ticks / TicksPerHour % 24);
}

int TimeSpan::Minutes() const
{
    return static_cast<int>(ticks / TicksPerMinute % 60);
}

int TimeSpan::Seconds() const
{
    return static_cast<int>(ticks / TicksPerSecond % 60);
}

int TimeSpan::Milliseconds() const
{
    return static_cast<int>(ticks / TicksPerMillisecond % 1000);
}

double TimeSpan::TotalDays() const
{
    return InUnits(ticks, TicksPerDay);
}

double TimeSpan::TotalHours() const
{
    return InUnits(ticks, TicksPerHour);
}

double TimeSpan::TotalMinutes() const
{
    return InUnits(ticks, TicksPerMinute);
}

double TimeSpan::TotalSeconds() const
{
    return InUnits(ticks, TicksPerSecond);
}

double TimeSpan::TotalMilliseconds() const
{
    return InUnits(ticks, TicksPerMillisecond);
}

TimeSpan TimeSpan::Add(const TimeSpan& other) const
{
    NotNull(other);
    return TimeSpan(Sum(ticks, other.ticks));
}

TimeSpan TimeSpan::Subtract(const TimeSpan& other) const
{
    NotNull(other);
    return other.ticks == Smallest ? TimeSpan(Sum(Sum(ticks, Largest), 1)) : TimeSpan(Sum(ticks, -other.ticks));
}

TimeSpan TimeSpan::Negate() const
{
    return TimeSpan(Negated(ticks));
}

TimeSpan TimeSpan::Duration() const
{
    return ticks < 0 ? Negate() : *this;
}

TimeSpan TimeSpan::operator+(const TimeSpan& other) const
{
    return Add(other);
}

TimeSpan TimeSpan::operator-(const TimeSpan& other) const
{
    return Subtract(other);
}

TimeSpan TimeSpan::operator-() const
{
    return Negate();
}

TimeSpan& TimeSpan::operator++()
{
    ticks = Sum(ticks, 1);
    return *this;
}

TimeSpan TimeSpan::operator++(int)
{
    const TimeSpan before(*this);
    ++*this;
    return before;
}

TimeSpan& TimeSpan::operator--()
{
    ticks = Sum(ticks, -1);
    return *this;
}

TimeSpan TimeSpan::operator--(int)
{
    const TimeSpan before(*this);
    --*this;
    return before;
}

bool TimeSpan::operator==(const TimeSpan& other) const
{
    return !IsNull(other) && ticks == other.ticks;
}

std::strong_ordering TimeSpan::operator<=>(const TimeSpan& other) const
{
    return ticks <=> NotNull(other).ticks;
}

String TimeSpan::ToString() const
{
    String text = ticks < 0 ? "-" : "";
    if (Days() != 0)
    {
        text += String::Format("{0}.", std::abs(Days()));
    }
    text += String::Format("{0:d2}:{1:d2}:{2:d2}", std::abs(Hours()), std::abs(Minutes()), std::abs(Seconds()));
    if (Milliseconds() != 0)
    {
        text += String::Format(".{0:d3}", std::abs(Milliseconds()));
    }
    return text;
}

bool TimeSpan::Equals(const Object& other) const
{
    const TimeSpan* const span = IsNull(other) ? nullptr : dynamic_cast<const TimeSpan*>(&other);
    return span != nullptr && span->ticks == ticks;
}

int TimeSpan::CompareTo(const IComparable& other) const
{
    const TimeSpan* const span = IsNull(other) ? nullptr : dynamic_cast<const TimeSpan*>(&other);
    return span == nullptr || ticks > span->ticks ? 1 : ticks < span->ticks ? -1 : 0;
}

int TimeSpan::GetHashCode() const
{
    const auto image = static_cast<std::uint64_t>(ticks);
    return static_cast<int>(static_cast<std::uint32_t>(image) ^ static_cast<std::uint32_t>(image >> 32));
}

TimeSpan TimeSpan::Parse(const String& text)
{
    NotNull(text);
    TimeSpanParser parser(text.Utf8());
    switch (parser.Run())
    {
    case TimeSpanParser::Outcome::Parsed:
        return TimeSpan(parser.Ticks());
    case TimeSpanParser::Outcome::OutOfRange:
        throw OverflowException(ThrowSite);
    default:
        throw FormatException(ThrowSite);
    }
}

bool TimeSpan::TryParse(const String& text, TimeSpan& result)
{
    if (IsNull(text))
    {
        return false;
    }
    TimeSpanParser parser(text.Utf8());
    if (parser.Run() != TimeSpanParser::Outcome::Parsed)
    {
        return false;
    }
    result = TimeSpan(parser.Ticks());
    return true;
}
} // namespace Tesmo::System
