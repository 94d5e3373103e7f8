#pragma once

#include <Core/System/Convertible.h>
#include <Core/System/DateTimeKind.h>
#include <Core/System/DayOfWeek.h>
#include <Core/System/IComparable.h>
#include <Core/System/IFormattable.h>
#include <Core/System/String.h>
#include <Core/System/TimeSpan.h>
#include <Core/System/ValueType.h>

#include <compare>
#include <cstdint>
#include <ctime>

namespace Tesmo::System
{
/// A moment: ticks of 100 nanoseconds since midnight of 1 January of year 1, up to the end of year 9999. The ticks of
/// every kind count UTC; the calendar fields of the kind Local are converted to local time when they are read.
/// Comparison and hash go by the ticks alone. What leaves the range gives ArgumentOutOfRangeException.
class DateTime : public ValueType, public IComparable, public Convertible<DateTime>, public IFormattable
{
public:
    static const DateTime MinValue;
    static const DateTime MaxValue;

    /// MinValue, or the moment of so many ticks in UTC, whatever the kind; of kind Unspecified where none is given.
    constexpr DateTime() = default;
    explicit DateTime(long long ticks);
    DateTime(long long ticks, DateTimeKind kind);
    /// The calendar fields are those that the accessors give back: of the kind Local they are local time.
    DateTime(int year, int month, int day, DateTimeKind kind = DateTimeKind::Unspecified);
    DateTime(int year, int month, int day, int hour, int minute, int second,
             DateTimeKind kind = DateTimeKind::Unspecified);
    DateTime(int year, int month, int day, int hour, int minute, int second, int millisecond,
             DateTimeKind kind = DateTimeKind::Unspecified);

    /// The present moment as kind Local. It allocates nothing.
    static DateTime Now();
    /// The present moment as kind Utc.
    static DateTime UtcNow();
    /// Midnight of the present local day, as kind Local.
    static DateTime Today();

    /// Since midnight of 1 January of year 1 in UTC, whatever the kind.
    std::int64_t Ticks() const
    {
        return static_cast<std::int64_t>(ticks);
    }
    DateTimeKind Kind() const
    {
        return kind;
    }

    /// The calendar fields: in local time where the kind is Local, else in UTC.
    int Year() const;
    int Month() const;       ///< 1 to 12
    int Day() const;         ///< 1 to 31
    int Hour() const;        ///< 0 to 23
    int Minute() const;      ///< 0 to 59
    int Second() const;      ///< 0 to 59
    int Millisecond() const; ///< 0 to 999
    System::DayOfWeek DayOfWeek() const;
    int DayOfYear() const; ///< 1 to 366

    /// The same moment as kind Utc.
    DateTime ToUniversalTime() const;
    /// The same moment as kind Local.
    DateTime ToLocalTime() const;

    /// The sum has the kind of this moment; a difference of moments goes by the ticks, whatever the kinds.
    /// @throws ArgumentNullException  the argument is null
    DateTime Add(const TimeSpan& span) const;
    DateTime Subtract(const TimeSpan& span) const;
    TimeSpan Subtract(const DateTime& other) const;
    DateTime operator+(const TimeSpan& span) const;
    DateTime operator-(const TimeSpan& span) const;
    TimeSpan operator-(const DateTime& other) const;
    bool operator==(const DateTime& other) const; ///< false for null
    std::strong_ordering operator<=>(const DateTime& other) const;

    String ToString() const override; ///< "%d/%m/%Y %H:%M:%S"
    /// The text by a format of the standard library's strftime; an empty one is that of ToString().
    /// @throws ArgumentNullException  format is null
    String ToString(const String& format) const;
    String ToString(const String& format, const IFormatProvider& provider) const override;
    String ToLongDateString() const;  ///< "%A %d %B %Y"
    String ToLongTimeString() const;  ///< "%H:%M:%S"
    String ToShortDateString() const; ///< "%d/%m/%Y"
    String ToShortTimeString() const; ///< "%H:%M"

    using ValueType::Equals;
    bool Equals(const ValueType& other) const override;
    int CompareTo(const IComparable& other) const override;
    int GetHashCode() const override;

    /// The conversions to numbers give the ticks, or OverflowException where they do not fit.
    TypeCode GetTypeCode() const override;

private:
    friend class Convertible<DateTime>;
    template <class T>
    T ConvertTo() const;

    static constexpr std::uint64_t LastTick = 3155378975999999999; // of the year 9999

    struct Checked
    {
        std::uint64_t ticks;
    };

    constexpr DateTime(Checked checked, DateTimeKind fieldsKind) : ticks(checked.ticks), kind(fieldsKind) {}

    std::tm BrokenDown() const;
    String Print(const char* pattern) const;

    std::uint64_t ticks = 0;
    DateTimeKind kind = DateTimeKind::Unspecified;
};

inline constinit const DateTime DateTime::MinValue{};
inline constinit const DateTime DateTime::MaxValue{DateTime::Checked{LastTick}, DateTimeKind::Unspecified};

extern template class Convertible<DateTime>;
} // namespace Tesmo::System
