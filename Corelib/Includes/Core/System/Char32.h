#pragma once

#include <compare>
#include <cstdint>

namespace Tesmo
{
/// One Unicode code point in 32 bits: the character type of the library.
struct char32
{
    std::uint32_t value = 0;

    /// 0, or the given number, which is not checked to be a code point.
    constexpr char32() = default;
    constexpr char32(std::uint32_t codePoint) : value(codePoint) {}
    constexpr char32(char32_t codePoint) : value(codePoint) {}
    /// The character of one byte, as ISO 8859-1 reads it.
    constexpr char32(char byte) : value(static_cast<unsigned char>(byte)) {}
    constexpr char32(int codePoint) : value(static_cast<std::uint32_t>(codePoint)) {}

    constexpr auto operator<=>(const char32&) const = default;
};
} // namespace Tesmo
