#pragma once

#include <Core/System/Char32.h>
#include <Core/System/OverflowException.h>
#include <Core/System/ThrowSite.h>

#include <cmath>
#include <concepts>
#include <limits>
#include <utility>

namespace Tesmo::System
{
/// True if value, its fraction cut off, fits the integer type To.
template <std::integral To, std::floating_point From>
bool FitsInteger(From value)
{
    const auto whole = std::trunc(static_cast<double>(value));
    const double bound = std::ldexp(1.0, std::numeric_limits<To>::digits);
    return whole < bound && whole >= (std::is_signed_v<To> ? -bound : 0.0); // false for NaN
}

/// value as a To.
/// @throws OverflowException  value does not fit
template <class To, class From>
To NumberCast(From value)
{
    bool fits = true;
    if constexpr (std::is_same_v<To, bool>)
    {
        return value != From(0);
    }
    else if constexpr (std::is_same_v<From, bool>)
    {
        return static_cast<To>(value ? 1 : 0);
    }
    else if constexpr (std::integral<To> && std::integral<From>)
    {
        fits = std::in_range<To>(value);
    }
    else if constexpr (std::integral<To>)
    {
        fits = FitsInteger<To>(value);
    }
    else if constexpr (std::is_same_v<To, float> && std::is_same_v<From, double>)
    {
        fits = !std::isfinite(value) || std::abs(value) <= static_cast<double>(std::numeric_limits<float>::max());
    }
    if (!fits)
    {
        throw OverflowException(ThrowSite);
    }
    return static_cast<To>(value);
}

/// @throws OverflowException  codePoint is above 1114111, the last one of Unicode
inline char32 CodePointCast(std::uint32_t codePoint)
{
    if (codePoint > 1114111)
    {
        throw OverflowException(ThrowSite);
    }
    return char32(codePoint);
}
} // namespace Tesmo::System
