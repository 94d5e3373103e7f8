#pragma once

#include <Core/System/IComparable.h>
#include <Core/System/IHashable.h>
#include <Core/System/Object.h>

#include <compare>
#include <cstdint>

namespace Tesmo::System
{
/// A length of time, in ticks of 100 nanoseconds. What does not fit 64 bits of ticks gives ArgumentOutOfRangeException.
class TimeSpan : public Object, public IComparable, public IHashable
{
public:
    static constexpr std::int64_t TicksPerMillisecond = 10000;
    static constexpr std::int64_t TicksPerSecond = 1000 * TicksPerMillisecond;
    static constexpr std::int64_t TicksPerMinute = 60 * TicksPerSecond;
    static constexpr std::int64_t TicksPerHour = 60 * TicksPerMinute;
    static constexpr std::int64_t TicksPerDay = 24 * TicksPerHour;

    static const TimeSpan Zero;
    static const TimeSpan MinValue;
    static const TimeSpan MaxValue;

    /// Zero; a number of ticks; or the sum of the parts, each of any size and sign.
    constexpr TimeSpan() = default;
    constexpr explicit TimeSpan(long long value) : ticks(value) {}
    TimeSpan(int hours, int minutes, int seconds);
    TimeSpan(int days, int hours, int minutes, int seconds);
    TimeSpan(int days, int hours, int minutes, int seconds, int milliseconds);

    /// Rounded to the nearest tick.
    static TimeSpan FromDays(double value);
    static TimeSpan FromHours(double value);
    static TimeSpan FromMinutes(double value);
    static TimeSpan FromSeconds(double value);
    static TimeSpan FromMilliseconds(double value);
    static TimeSpan FromTicks(long long value);

    /// The whole span, in units of 100 nanoseconds.
    std::int64_t Ticks() const
    {
        return ticks;
    }

    /// The parts, each with the sign of the span: whole days, and what is left of the next larger unit.
    int Days() const;
    int Hours() const;
    int Minutes() const;
    int Seconds() const;
    int Milliseconds() const;

    /// The whole span in one unit, fractions included.
    double TotalDays() const;
    double TotalHours() const;
    double TotalMinutes() const;
    double TotalSeconds() const;
    double TotalMilliseconds() const;

    /// The operators + and - do the same. Null gives ArgumentNullException; MinValue has no negation.
    TimeSpan Add(const TimeSpan& other) const;
    TimeSpan Subtract(const TimeSpan& other) const;
    TimeSpan Negate() const;
    TimeSpan Duration() const; ///< without its sign
    TimeSpan operator+(const TimeSpan& other) const;
    TimeSpan operator-(const TimeSpan& other) const;
    TimeSpan operator-() const;
    TimeSpan& operator++(); ///< one tick more
    TimeSpan operator++(int);
    TimeSpan& operator--(); ///< one tick less
    TimeSpan operator--(int);
    bool operator==(const TimeSpan& other) const; ///< false for null
    std::strong_ordering operator<=>(const TimeSpan& other) const;

    /// "[-][days.]hh:mm:ss[.mmm]"
    String ToString() const override;
    bool Equals(const Object& other) const override;
    int CompareTo(const IComparable& other) const override;
    int GetHashCode() const override;

    /// Reads "[-]days" or "[-][days.]hh:mm[:ss[.f]]" with up to 7 fraction digits, blanks around it allowed.
    /// @throws ArgumentNullException  text is null
    /// @throws FormatException        text has another form
    /// @throws OverflowException      hours above 23, minutes or seconds above 59, or too many days
    static TimeSpan Parse(const String& text);

    /// False, and no change of result, where Parse throws.
    static bool TryParse(const String& text, TimeSpan& result);

private:
    std::int64_t ticks = 0;
};

inline constinit const TimeSpan TimeSpan::Zero{0LL};
inline constinit const TimeSpan TimeSpan::MinValue{INT64_MIN};
inline constinit const TimeSpan TimeSpan::MaxValue{INT64_MAX};
} // namespace Tesmo::System
