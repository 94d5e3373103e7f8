#include <Core/System/Char.h>

#include "CaseMapping.h"
#include "CharacterClass.h"
#include "ConvertTo.h"
#include "NumberCast.h"
#include <Core/System/Checks.h>
#include <Core/System/DateTime.h>
#include <Core/System/FormatException.h>

namespace Tesmo::System
{
namespace
{
constexpr char32 SharpS{0xDF}; // lower case, although no single character is its upper case

char32 At(const String& text, int index)
{
    return NotNull(text)[index];
}
} // namespace

char32 Char::Parse(const String& text)
{
    char32 result;
    if (!TryParse(NotNull(text), result))
    {
        throw FormatException(ThrowSite);
    }
    return result;
}

bool Char::TryParse(const String& text, char32& result)
{
    if (IsNull(text) || text.Length() != 1)
    {
        return false;
    }
    result = text[0];
    return true;
}

bool Char::IsDigit(char32 c)
{
    return ClassOf(c) == CharacterClass::Digit;
}

bool Char::IsDigit(const String& text, int index)
{
    return IsDigit(At(text, index));
}

bool Char::IsLetter(char32 c)
{
    return ClassOf(c) == CharacterClass::Letter || IsLower(c) || IsUpper(c);
}

bool Char::IsLetter(const String& text, int index)
{
    return IsLetter(At(text, index));
}

bool Char::IsLetterOrDigit(char32 c)
{
    return IsLetter(c) || IsDigit(c);
}

bool Char::IsLetterOrDigit(const String& text, int index)
{
    return IsLetterOrDigit(At(text, index));
}

bool Char::IsLower(char32 c)
{
    return UpperCase(c) != c || c == SharpS;
}

bool Char::IsLower(const String& text, int index)
{
    return IsLower(At(text, index));
}

bool Char::IsUpper(char32 c)
{
    return LowerCase(c) != c;
}

bool Char::IsUpper(const String& text, int index)
{
    return IsUpper(At(text, index));
}

bool Char::IsNumber(char32 c)
{
    return IsDigit(c) || ClassOf(c) == CharacterClass::OtherNumber;
}

bool Char::IsNumber(const String& text, int index)
{
    return IsNumber(At(text, index));
}

bool Char::IsPunctuation(char32 c)
{
    return ClassOf(c) == CharacterClass::Punctuation;
}

bool Char::IsPunctuation(const String& text, int index)
{
    return IsPunctuation(At(text, index));
}

bool Char::IsSeparator(char32 c)
{
    return ClassOf(c) == CharacterClass::Separator;
}

bool Char::IsSeparator(const String& text, int index)
{
    return IsSeparator(At(text, index));
}

bool Char::IsSymbol(char32 c)
{
    return ClassOf(c) == CharacterClass::Symbol;
}

bool Char::IsSymbol(const String& text, int index)
{
    return IsSymbol(At(text, index));
}

bool Char::IsWhiteSpace(char32 c)
{
    return IsSeparator(c) || (c.value >= 9 && c.value <= 13) || c.value == 133;
}

bool Char::IsWhiteSpace(const String& text, int index)
{
    return IsWhiteSpace(At(text, index));
}

bool Char::IsControl(char32 c)
{
    return c.value < 32 || (c.value >= 127 && c.value < 160);
}

bool Char::IsControl(const String& text, int index)
{
    return IsControl(At(text, index));
}

char32 Char::ToLower(char32 c)
{
    return LowerCase(c);
}

char32 Char::ToUpper(char32 c)
{
    return UpperCase(c);
}

String Char::ToString() const
{
    return String(value, 1);
}

String Char::ToString(const String& format) const
{
    NotNull(format);
    return ToString();
}

String Char::ToString(const String& format, const IFormatProvider&) const
{
    return ToString(format);
}

int Char::GetHashCode() const
{
    return static_cast<int>(value.value);
}

int Char::CompareTo(const IComparable& other) const
{
    const auto* const character = IsNull(other) ? nullptr : dynamic_cast<const Char*>(&other);
    if (character == nullptr)
    {
        return 1;
    }
    return value < character->value ? -1 : value > character->value ? 1 : 0;
}

TypeCode Char::GetTypeCode() const
{
    return TypeCode::Char;
}

template <class T>
T Char::ConvertTo() const
{
    if constexpr (std::is_same_v<T, char32>)
    {
        return value;
    }
    else if constexpr (std::is_same_v<T, DateTime>)
    {
        return DateTime(NumberCast<std::int64_t>(value.value));
    }
    else
    {
        return NumberCast<T>(value.value);
    }
}

template class Convertible<Char>;
} // namespace Tesmo::System
