#include <Core/System/String.h>

#include "CaseMapping.h"
#include <Core/System/Checks.h>

#include <algorithm>
#include <compare>

namespace Tesmo::System
{
namespace
{
int Sign(std::strong_ordering order)
{
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

/// Number of code points from startIndex on, length at most.
/// @throws ArgumentOutOfRangeException  startIndex does not lie in the text
int CutLength(const String& text, int startIndex, int length)
{
    return std::min(length, CountFrom(startIndex, text.Length()));
}
} // namespace

bool String::Equals(const Object& other) const
{
    const auto* const text = dynamic_cast<const String*>(&NotNull(other)); // null throws here, unlike in other classes
    return text != nullptr && *this == *text;
}

bool String::Equals(const String& other) const
{
    return *this == other;
}

bool String::operator==(const String& other) const
{
    return !IsNull(other) && value == other.value;
}

int String::GetHashCode() const
{
    std::uint32_t hash = 0;
    for (const char32 c : value)
    {
        hash = hash * 5 + c.value;
    }
    return static_cast<int>(hash);
}

int String::CompareTo(const IComparable& other) const
{
    if (IsNull(other))
    {
        return 1;
    }
    const auto* const text = dynamic_cast<const String*>(&other);
    return text == nullptr ? 1 : Compare(*this, *text);
}

int String::Compare(const String& strA, const String& strB)
{
    return Compare(strA, strB, false);
}

int String::Compare(const String& strA, const String& strB, bool ignoreCase)
{
    const int length = IsNull(strA) || IsNull(strB) ? 0 : std::max(strA.Length(), strB.Length());
    return Compare(strA, 0, strB, 0, length, ignoreCase);
}

int String::Compare(const String& strA, int indexA, const String& strB, int indexB, int length)
{
    return Compare(strA, indexA, strB, indexB, length, false);
}

int String::Compare(const String& strA, int indexA, const String& strB, int indexB, int length, bool ignoreCase)
{
    if (IsNull(strA) || IsNull(strB))
    {
        return IsNull(strB) ? (IsNull(strA) ? 0 : 1) : -1;
    }
    NotNegative(length);
    const int lengthA = CutLength(strA, indexA, length);
    const int lengthB = CutLength(strB, indexB, length);
    auto a = strA.Text().From(static_cast<std::size_t>(indexA));
    auto b = strB.Text().From(static_cast<std::size_t>(indexB));
    for (int left = std::min(lengthA, lengthB); left > 0; left--, ++a, ++b)
    {
        const auto order = ignoreCase ? LowerCase(*a) <=> LowerCase(*b) : *a <=> *b;
        if (order != 0)
        {
            return Sign(order);
        }
    }
    return Sign(lengthA <=> lengthB);
}
} // namespace Tesmo::System
