#pragma once

#include <Core/System/CallSite.h>

#include <cstdint>
#include <string_view>

namespace Tesmo::System
{
class String;

/// Numbers from text. Blanks (code 32) around the number and one sign are allowed. In base 16 a "0x", in base 2 a "0b"
/// may precede the digits, in base 2 a "b" may follow them. In the bases 2, 8 and 16 a number without a minus sign that
/// fills all bits of a signed type is its two's-complement pattern: "0xFFFFFFFF" is -1 in 32 bits. A failure names
/// the place of the call.
class NumericalParsing
{
public:
    NumericalParsing() = delete;

    /// @param base    2 to 32
    /// @param bits    width of the type that is read: 8, 16, 32 or 64
    /// @param result  receives the number; unchanged where the operation throws
    /// @throws ArgumentNullException  text is null
    /// @throws ArgumentException      base is out of range
    /// @throws FormatException        text is no number
    /// @throws OverflowException      the number does not fit
    static void Parse(const String& text, int base, int bits, std::int64_t& result, CallSite site = CallSite::Here());
    static void Parse(const String& text, int base, int bits, std::uint64_t& result, CallSite site = CallSite::Here());

    /// False, and no change of result, where the forms above throw.
    static bool TryParse(const String& text, int base, int bits, std::int64_t& result);
    static bool TryParse(const String& text, int base, int bits, std::uint64_t& result);

    /// Optional sign, digits, '.', digits, exponent, or a text that a floating number prints without digits.
    /// @throws ArgumentNullException  text is null
    /// @throws FormatException        text is no number
    /// @throws OverflowException      the number is too large or, other than 0, too small for its type
    static void Parse(const String& text, double& result, CallSite site = CallSite::Here());
    static void Parse(const String& text, float& result, CallSite site = CallSite::Here());
    static bool TryParse(const String& text, double& result);
    static bool TryParse(const String& text, float& result);

    /// Parse for a part of a text, in UTF-8.
    static void ParseUtf8(std::string_view text, int base, int bits, std::int64_t& result,
                          CallSite site = CallSite::Here());
    static void ParseUtf8(std::string_view text, int base, int bits, std::uint64_t& result,
                          CallSite site = CallSite::Here());
};
} // namespace Tesmo::System
