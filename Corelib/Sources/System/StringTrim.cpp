#include <Core/System/String.h>

#include "CharacterPredicates.h"
#include <Core/System/Checks.h>

namespace Tesmo::System
{
namespace
{
template <class Predicate>
String CutStart(const String& text, Predicate isTrimmed)
{
    auto position = text.Text().begin();
    while (position.byteIndex >= 0 && isTrimmed(*position))
    {
        ++position;
    }
    return text.Substring(position.charIndex);
}

template <class Predicate>
String CutEnd(const String& text, Predicate isTrimmed)
{
    auto position = text.Text().rbegin();
    while (position.byteIndex >= 0 && isTrimmed(*position))
    {
        ++position;
    }
    return text.Substring(0, position.charIndex + 1);
}
} // namespace

String String::Trim(char32 trimChar) const
{
    return CutStart(CutEnd(*this, EqualTo(trimChar)), EqualTo(trimChar));
}

String String::Trim(const Array<char32>& trimChars) const
{
    NotNull(trimChars);
    return CutStart(CutEnd(*this, OneOf(trimChars)), OneOf(trimChars));
}

String String::TrimStart(char32 trimChar) const
{
    return CutStart(*this, EqualTo(trimChar));
}

String String::TrimStart(const Array<char32>& trimChars) const
{
    return CutStart(*this, OneOf(NotNull(trimChars)));
}

String String::TrimEnd(char32 trimChar) const
{
    return CutEnd(*this, EqualTo(trimChar));
}

String String::TrimEnd(const Array<char32>& trimChars) const
{
    return CutEnd(*this, OneOf(NotNull(trimChars)));
}
} // namespace Tesmo::System
