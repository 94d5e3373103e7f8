#pragma once

#include <Core/System/Convertible.h>
#include <Core/System/IComparable.h>
#include <Core/System/IFormattable.h>
#include <Core/System/String.h>
#include <Core/System/ValueType.h>

#include <cstdint>

namespace Tesmo::System
{
/// One character (a code point) as an object, and the classification of characters by the general categories of the
/// Unicode Character Database: known up to U+052F (Latin, Greek, Cyrillic) and from U+1E00 to U+2BFF; elsewhere only
/// letters with a partner of the other case are known.
/// The forms with a text and an index give ArgumentNullException for a null text and ArgumentOutOfRangeException for an
/// index outside of it.
class Char : public ValueType, public IComparable, public Convertible<Char>, public IFormattable
{
public:
    using Primitive = char32;

    static constexpr char32 MinValue{0};
    static constexpr char32 MaxValue{0x10FFFF}; ///< the last code point of Unicode

    /// Code point 0, or the given one; implicit both ways, so that a plain code point passes for an object and back.
    constexpr Char() = default;
    constexpr Char(char32 primitive) : value(primitive) {}
    constexpr operator char32() const
    {
        return value;
    }

    /// Reads a text of exactly one character.
    /// @throws ArgumentNullException  text is null
    /// @throws FormatException        text has another length
    static char32 Parse(const String& text);
    /// False, and no change of result, where Parse throws.
    static bool TryParse(const String& text, char32& result);

    /// Digits are '0' to '9' alone. Upper and lower case are letters that have a partner of the other case; U+00DF is
    /// lower case although it has none.
    static bool IsDigit(char32 c);
    static bool IsDigit(const String& text, int index);
    static bool IsLetter(char32 c);
    static bool IsLetter(const String& text, int index);
    static bool IsLetterOrDigit(char32 c);
    static bool IsLetterOrDigit(const String& text, int index);
    static bool IsLower(char32 c);
    static bool IsLower(const String& text, int index);
    static bool IsUpper(char32 c);
    static bool IsUpper(const String& text, int index);
    /// Digits, and numbers such as fractions and superscripts.
    static bool IsNumber(char32 c);
    static bool IsNumber(const String& text, int index);
    static bool IsPunctuation(char32 c);
    static bool IsPunctuation(const String& text, int index);
    /// Blanks of any width and the line and paragraph separators.
    static bool IsSeparator(char32 c);
    static bool IsSeparator(const String& text, int index);
    static bool IsSymbol(char32 c);
    static bool IsSymbol(const String& text, int index);
    /// Separators, the control characters 9 to 13, and 133 (next line).
    static bool IsWhiteSpace(char32 c);
    static bool IsWhiteSpace(const String& text, int index);
    /// 0 to 31 and 127 to 159.
    static bool IsControl(char32 c);
    static bool IsControl(const String& text, int index);

    /// The partner of the other case; c itself where it has none.
    static char32 ToLower(char32 c);
    static char32 ToUpper(char32 c);

    using ValueType::Equals;

    /// The text of this one character.
    String ToString() const override;
    /// The same under every format.
    /// @throws ArgumentNullException  format is null
    String ToString(const String& format) const;
    String ToString(const String& format, const IFormatProvider& provider) const override;

    int GetHashCode() const override;                       ///< the code point
    int CompareTo(const IComparable& other) const override; ///< by code point; 1 for null and for another class

    TypeCode GetTypeCode() const override;

private:
    friend class Convertible<Char>;
    template <class T>
    T ConvertTo() const;

    char32 value;
};

extern template class Convertible<Char>;
} // namespace Tesmo::System
