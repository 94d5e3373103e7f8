#pragma once

#include <Core/System/Char32.h>

namespace Tesmo::System::Text
{
constexpr std::uint32_t LastCodePoint = 0x10FFFF;
constexpr std::uint32_t FirstSupplementary = 0x10000; ///< from here on UTF-16 needs two units
constexpr std::uint32_t FirstHighSurrogate = 0xD800;
constexpr std::uint32_t FirstLowSurrogate = 0xDC00;
constexpr std::uint32_t LastLowSurrogate = 0xDFFF;

constexpr bool IsHighSurrogate(std::uint32_t unit)
{
    return unit >= FirstHighSurrogate && unit < FirstLowSurrogate;
}

constexpr bool IsLowSurrogate(std::uint32_t unit)
{
    return unit >= FirstLowSurrogate && unit <= LastLowSurrogate;
}

/// Whether a number is that of a character: in the range of Unicode and no surrogate.
constexpr bool IsScalar(std::uint32_t codePoint)
{
    return codePoint <= LastCodePoint && !IsHighSurrogate(codePoint) && !IsLowSurrogate(codePoint);
}
} // namespace Tesmo::System::Text
