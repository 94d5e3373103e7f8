#pragma once

#include <Core/System/Char32.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace Tesmo::System
{
class String;

/// Text of numbers by a format: a letter and an optional precision of up to nine decimal digits. The decimal point is
/// always '.', the group separator always ','.
///
/// Integers:  g G  general, %g with 10 significant digits where no exponent is needed the plain digits
///            d    decimal, at least precision digits
///            x X  hexadecimal pattern of the type's width, at least precision digits
///            b    binary pattern of the type's width, at least precision digits
///            f n  digits, '.', precision zeros (2 by default); n with groups of three
///            p    a hundred times the value, grouped, and " %"
/// Floating:  g G f n p; NaN and the infinities are "NaN", "Infinity" and "-Infinity" under every format
class NumericalFormat
{
public:
    NumericalFormat() = delete;

    /// Splits a format. An empty one is 'G'; one that is not standard gives the letter 0.
    /// @param precision  0 where the format names none
    /// @throws ArgumentNullException  format is null
    static void ParseFormat(const String& format, char32& letter, int& precision);

    /// @param bits  width of the value's type: 8, 16, 32 or 64
    /// @throws ArgumentNullException  format is null
    static String ToString(std::int64_t value, int bits, const String& format);
    static String ToString(std::uint64_t value, int bits, const String& format);
    /// @param digits  significant digits of the general format where the format names none
    /// @throws ArgumentNullException  format is null
    /// @throws FormatException        format is none for floating numbers
    static String ToString(double value, int digits, const String& format);

    /// The same at the end of a text.
    static void Append(std::string& text, std::int64_t value, int bits, std::string_view format);
    static void Append(std::string& text, std::uint64_t value, int bits, std::string_view format);
    static void Append(std::string& text, double value, int digits, std::string_view format);
};
} // namespace Tesmo::System
