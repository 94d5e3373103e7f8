#include "TimeSpanParser.h"

#include <Core/System/TimeSpan.h>

#include <algorithm>
#include <charconv>

namespace Tesmo::System
{
TimeSpanParser::Outcome TimeSpanParser::Run()
{
    rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
    rest = rest.substr(0, rest.find_last_not_of(' ') + 1);
    const bool isNegative = Take('-');
    return TakeFields() && rest.empty() ? Total(isNegative) : Outcome::Malformed;
}

bool TimeSpanParser::Take(char character)
{
    if (!rest.starts_with(character))
    {
        return false;
    }
    rest.remove_prefix(1);
    return true;
}

/// A number beyond 32 bits counts as the largest: it is out of the range of every field.
bool TimeSpanParser::TakeNumber(std::int64_t& number)
{
    std::uint32_t value = UINT32_MAX;
    const auto [stop, error] = std::from_chars(rest.data(), rest.data() + rest.size(), value);
    rest.remove_prefix(static_cast<std::size_t>(stop - rest.data()));
    number = value;
    return error != std::errc::invalid_argument;
}

/// The decimals of the seconds, as many as ticks can tell.
bool TimeSpanParser::TakeFraction()
{
    std::int64_t unit = TimeSpan::TicksPerSecond;
    const std::size_t size = rest.size();
    while (!rest.empty() && rest.front() >= '0' && rest.front() <= '9' && unit > 1)
    {
        unit /= 10;
        fraction += (rest.front() - '0') * unit;
        rest.remove_prefix(1);
    }
    return rest.size() < size;
}

bool TimeSpanParser::TakeFields()
{
    std::int64_t first = 0;
    if (!TakeNumber(first))
    {
        return false;
    }
    if (rest.empty())
    {
        days = first;
        return true;
    }
    if (Take('.'))
    {
        days = first;
        return TakeNumber(hours) && TakeTimeOfDay();
    }
    hours = first;
    return TakeTimeOfDay();
}

bool TimeSpanParser::TakeTimeOfDay()
{
    if (!Take(':') || !TakeNumber(minutes))
    {
        return false;
    }
    return !Take(':') || (TakeNumber(seconds) && (!Take('.') || TakeFraction()));
}

TimeSpanParser::Outcome TimeSpanParser::Total(bool isNegative)
{
    const auto limit = static_cast<std::uint64_t>(INT64_MAX) + (isNegative ? 1 : 0);
    if (hours > 23 || minutes > 59 || seconds > 59 || static_cast<std::uint64_t>(days) > limit / TimeSpan::TicksPerDay)
    {
        return Outcome::OutOfRange;
    }
    const std::int64_t time = hours * TimeSpan::TicksPerHour + minutes * TimeSpan::TicksPerMinute +
                              seconds * TimeSpan::TicksPerSecond + fraction;
    const auto magnitude = static_cast<std::uint64_t>(days * TimeSpan::TicksPerDay) + static_cast<std::uint64_t>(time);
    if (magnitude > limit)
    {
        return Outcome::OutOfRange;
    }
    ticks = static_cast<std::int64_t>(isNegative ? 0 - magnitude : magnitude);
    return Outcome::Parsed;
}
} // namespace Tesmo::System
