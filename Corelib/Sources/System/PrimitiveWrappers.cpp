#include <Core/System/ArgumentNullException.h>
#include <Core/System/Boolean.h>
#include <Core/System/Byte.h>
#include <Core/System/Checks.h>
#include <Core/System/DateTime.h>
#include <Core/System/Double.h>
#include <Core/System/FormatException.h>
#include <Core/System/Int16.h>
#include <Core/System/Int32.h>
#include <Core/System/Int64.h>
#include <Core/System/NumericalFormat.h>
#include <Core/System/NumericalParsing.h>
#include <Core/System/SByte.h>
#include <Core/System/Single.h>
#include <Core/System/UInt16.h>
#include <Core/System/UInt32.h>
#include <Core/System/UInt64.h>

#include "ConvertTo.h"
#include "NumberCast.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace Tesmo::System
{
namespace
{
template <class P>
inline constexpr TypeCode CodeOf = TypeCode::Boolean;
template <>
inline constexpr TypeCode CodeOf<std::int8_t> = TypeCode::SByte;
template <>
inline constexpr TypeCode CodeOf<std::uint8_t> = TypeCode::Byte;
template <>
inline constexpr TypeCode CodeOf<std::int16_t> = TypeCode::Int16;
template <>
inline constexpr TypeCode CodeOf<std::uint16_t> = TypeCode::UInt16;
template <>
inline constexpr TypeCode CodeOf<std::int32_t> = TypeCode::Int32;
template <>
inline constexpr TypeCode CodeOf<std::uint32_t> = TypeCode::UInt32;
template <>
inline constexpr TypeCode CodeOf<std::int64_t> = TypeCode::Int64;
template <>
inline constexpr TypeCode CodeOf<std::uint64_t> = TypeCode::UInt64;
template <>
inline constexpr TypeCode CodeOf<float> = TypeCode::Single;
template <>
inline constexpr TypeCode CodeOf<double> = TypeCode::Double;

/// The type in which the helpers take a primitive, and the measure that goes with it: the bits of an integer, the
/// digits of a floating number.
template <class P>
using Widest = std::conditional_t<std::floating_point<P>, double,
                                  std::conditional_t<std::is_signed_v<P>, std::int64_t, std::uint64_t>>;
template <class P>
constexpr int Measure = std::is_same_v<P, double>  ? 15
                        : std::is_same_v<P, float> ? 7
                                                   : static_cast<int>(sizeof(P) * 8);

const String& TextOf(bool value)
{
    return value ? Boolean::TrueString() : Boolean::FalseString();
}

bool EqualsIgnoringCase(std::string_view text, std::string_view lower)
{
    return std::equal(text.begin(), text.end(), lower.begin(), lower.end(),
                      [](char left, char right) { return (left | 0x20) == right; });
}

int HashOf(std::uint64_t image)
{
    return static_cast<int>(static_cast<std::uint32_t>(image) ^ static_cast<std::uint32_t>(image >> 32));
}
} // namespace

template <class W, class P>
String PrimitiveWrapper<W, P>::ToString() const
{
    if constexpr (std::is_same_v<P, bool>)
    {
        return TextOf(value);
    }
    else
    {
        std::string text;
        NumericalFormat::Append(text, static_cast<Widest<P>>(value), Measure<P>, std::floating_point<P> ? "g" : "d");
        return String(std::move(text));
    }
}

template <class W, class P>
String PrimitiveWrapper<W, P>::ToString(const String& format) const
{
    if constexpr (std::is_same_v<P, bool>)
    {
        NotNull(format);
        return TextOf(value);
    }
    else
    {
        return NumericalFormat::ToString(static_cast<Widest<P>>(value), Measure<P>, format);
    }
}

template <class W, class P>
String PrimitiveWrapper<W, P>::ToString(const String& format, const IFormatProvider&) const
{
    return ToString(format);
}

template <class W, class P>
bool PrimitiveWrapper<W, P>::IsSigned() const
{
    return std::is_signed_v<P>;
}

template <class W, class P>
int PrimitiveWrapper<W, P>::GetHashCode() const
{
    if constexpr (std::is_same_v<P, double>)
    {
        return HashOf(std::bit_cast<std::uint64_t>(value + 0.0)); // one hash for both zeros (decision 18)
    }
    else if constexpr (std::is_same_v<P, float>)
    {
        return std::bit_cast<int>(value + 0.0F);
    }
    else if constexpr (sizeof(P) == sizeof(std::uint64_t))
    {
        return HashOf(static_cast<std::uint64_t>(value));
    }
    else
    {
        return static_cast<int>(value);
    }
}

template <class W, class P>
int PrimitiveWrapper<W, P>::CompareTo(const IComparable& other) const
{
    const W* const same = IsNull(other) ? nullptr : dynamic_cast<const W*>(&other);
    if (same == nullptr)
    {
        return 1;
    }
    const P right = *same;
    if constexpr (std::floating_point<P>)
    {
        if (std::isnan(value) || std::isnan(right)) // NaN sorts first
        {
            return static_cast<int>(std::isnan(right)) - static_cast<int>(std::isnan(value));
        }
    }
    return value < right ? -1 : value > right ? 1 : 0;
}

template <class W, class P>
TypeCode PrimitiveWrapper<W, P>::GetTypeCode() const
{
    return CodeOf<P>;
}

template <class W, class P>
template <class T>
T PrimitiveWrapper<W, P>::ConvertTo() const
{
    if constexpr (std::is_same_v<T, char32>)
    {
        return CodePointCast(NumberCast<std::uint32_t>(value));
    }
    else if constexpr (std::is_same_v<T, DateTime>)
    {
        const auto ticks = NumberCast<std::int64_t>(value);
        if (ticks < DateTime::MinValue.Ticks() || ticks > DateTime::MaxValue.Ticks())
        {
            throw OverflowException(ThrowSite);
        }
        return DateTime(ticks);
    }
    else
    {
        return NumberCast<T>(value);
    }
}

template <class W, class P>
P IntegerWrapper<W, P>::Parse(const String& text, CallSite site)
{
    return Parse(text, 10, site);
}

template <class W, class P>
P IntegerWrapper<W, P>::Parse(const String& text, int base, CallSite site)
{
    Widest<P> wide = 0;
    NumericalParsing::Parse(text, base, Measure<P>, wide, site);
    return static_cast<P>(wide);
}

template <class W, class P>
bool IntegerWrapper<W, P>::TryParse(const String& text, P& result)
{
    return TryParse(text, 10, result);
}

template <class W, class P>
bool IntegerWrapper<W, P>::TryParse(const String& text, int base, P& result)
{
    Widest<P> wide = 0;
    const bool parsed = NumericalParsing::TryParse(text, base, Measure<P>, wide);
    result = parsed ? static_cast<P>(wide) : result;
    return parsed;
}

template <class W, class P>
P FloatWrapper<W, P>::Parse(const String& text, CallSite site)
{
    P result = 0;
    NumericalParsing::Parse(text, result, site);
    return result;
}

template <class W, class P>
bool FloatWrapper<W, P>::TryParse(const String& text, P& result)
{
    return NumericalParsing::TryParse(text, result);
}

const String& Boolean::TrueString()
{
    static const String text("True");
    return text;
}

const String& Boolean::FalseString()
{
    static const String text("False");
    return text;
}

bool Boolean::Parse(const String& text)
{
    NotNull(text);
    bool result = false;
    if (!TryParse(text, result))
    {
        throw FormatException(ThrowSite);
    }
    return result;
}

bool Boolean::TryParse(const String& text, bool& result)
{
    if (IsNull(text))
    {
        return false;
    }
    std::string_view word = text.Utf8();
    word.remove_prefix(std::min(word.find_first_not_of(' '), word.size()));
    word = word.substr(0, word.find_last_not_of(' ') + 1);
    const bool isTrue = EqualsIgnoringCase(word, "true");
    if (!isTrue && !EqualsIgnoringCase(word, "false"))
    {
        return false;
    }
    result = isTrue;
    return true;
}

template class PrimitiveWrapper<Boolean, bool>;
template class Convertible<PrimitiveWrapper<Boolean, bool>>;
template class PrimitiveWrapper<SByte, std::int8_t>;
template class Convertible<PrimitiveWrapper<SByte, std::int8_t>>;
template class IntegerWrapper<SByte, std::int8_t>;
template class PrimitiveWrapper<Byte, std::uint8_t>;
template class Convertible<PrimitiveWrapper<Byte, std::uint8_t>>;
template class IntegerWrapper<Byte, std::uint8_t>;
template class PrimitiveWrapper<Int16, std::int16_t>;
template class Convertible<PrimitiveWrapper<Int16, std::int16_t>>;
template class IntegerWrapper<Int16, std::int16_t>;
template class PrimitiveWrapper<UInt16, std::uint16_t>;
template class Convertible<PrimitiveWrapper<UInt16, std::uint16_t>>;
template class IntegerWrapper<UInt16, std::uint16_t>;
template class PrimitiveWrapper<Int32, std::int32_t>;
template class Convertible<PrimitiveWrapper<Int32, std::int32_t>>;
template class IntegerWrapper<Int32, std::int32_t>;
template class PrimitiveWrapper<UInt32, std::uint32_t>;
template class Convertible<PrimitiveWrapper<UInt32, std::uint32_t>>;
template class IntegerWrapper<UInt32, std::uint32_t>;
template class PrimitiveWrapper<Int64, std::int64_t>;
template class Convertible<PrimitiveWrapper<Int64, std::int64_t>>;
template class IntegerWrapper<Int64, std::int64_t>;
template class PrimitiveWrapper<UInt64, std::uint64_t>;
template class Convertible<PrimitiveWrapper<UInt64, std::uint64_t>>;
template class IntegerWrapper<UInt64, std::uint64_t>;
template class PrimitiveWrapper<Single, float>;
template class Convertible<PrimitiveWrapper<Single, float>>;
template class FloatWrapper<Single, float>;
template class PrimitiveWrapper<Double, double>;
template class Convertible<PrimitiveWrapper<Double, double>>;
template class FloatWrapper<Double, double>;
} // namespace Tesmo::System
