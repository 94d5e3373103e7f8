#include <Core/System/String.h>

#include "CharacterPredicates.h"
#include <Core/System/Checks.h>

#include <algorithm>
#include <string_view>

namespace Tesmo::System
{
namespace
{
/// The bytes of count code points from startIndex on.
std::string_view Range(const ustring& text, int startIndex, int count)
{
    const std::size_t first = text.BytePosition(static_cast<std::size_t>(startIndex));
    const std::size_t last = text.BytePosition(static_cast<std::size_t>(startIndex) + static_cast<std::size_t>(count));
    return std::string_view(text.Bytes()).substr(first, last - first);
}

/// Index of the code point at a byte position, which a search found in a part of the text.
int IndexAt(const ustring& text, const char* position)
{
    const auto bytes = static_cast<std::size_t>(position - text.Bytes().data());
    return static_cast<int>(text.IsAscii() ? bytes : Utf8::Count(std::string_view(text.Bytes()).substr(0, bytes)));
}

template <class Predicate>
int FindForward(const ustring& text, int startIndex, int count, Predicate matches)
{
    CheckRange(startIndex, count, text.Length());
    auto position = text.From(static_cast<std::size_t>(startIndex));
    for (; count > 0; count--, ++position)
    {
        if (matches(*position))
        {
            return position.charIndex;
        }
    }
    return -1;
}

/// Where a backward search through the whole text begins.
int LastIndex(int length)
{
    return std::max(length - 1, 0);
}

/// A backward range ends at startIndex and holds count code points. In an empty text it begins at 0 and holds none.
void CheckBackwardRange(int startIndex, int count, int length)
{
    if (startIndex < 0 || startIndex > LastIndex(length) || count < 0 || count > std::min(startIndex + 1, length))
    {
        throw ArgumentOutOfRangeException(ThrowSite);
    }
}

/// The count that reaches back to the first code point.
int CountBackFrom(int startIndex, int length)
{
    CheckBackwardRange(startIndex, 0, length);
    return std::min(startIndex + 1, length);
}

template <class Predicate>
int FindBackward(const ustring& text, int startIndex, int count, Predicate matches)
{
    CheckBackwardRange(startIndex, count, text.Length());
    auto position = text.BackFrom(static_cast<std::size_t>(startIndex));
    for (; count > 0; count--, ++position)
    {
        if (matches(*position))
        {
            return position.charIndex;
        }
    }
    return -1;
}
} // namespace

bool String::Contains(const String& text) const
{
    return IndexOf(text) >= 0;
}

int String::IndexOf(char32 c) const
{
    return IndexOf(c, 0);
}

int String::IndexOf(char32 c, int startIndex) const
{
    return IndexOf(c, startIndex, CountFrom(startIndex, Length()));
}

int String::IndexOf(char32 c, int startIndex, int count) const
{
    return FindForward(value, startIndex, count, EqualTo(c));
}

int String::IndexOf(const String& text) const
{
    return IndexOf(text, 0);
}

int String::IndexOf(const String& text, int startIndex) const
{
    NotNull(text);
    return IndexOf(text, startIndex, CountFrom(startIndex, Length()));
}

int String::IndexOf(const String& text, int startIndex, int count) const
{
    NotNull(text);
    CheckRange(startIndex, count, Length());
    if (text.IsEmpty())
    {
        return startIndex;
    }
    const std::string_view range = Range(value, startIndex, count);
    const std::size_t found = range.find(text.Utf8());
    return found == std::string_view::npos ? -1 : IndexAt(value, range.data() + found);
}

int String::LastIndexOf(char32 c) const
{
    return LastIndexOf(c, LastIndex(Length()));
}

int String::LastIndexOf(char32 c, int startIndex) const
{
    return LastIndexOf(c, startIndex, CountBackFrom(startIndex, Length()));
}

int String::LastIndexOf(char32 c, int startIndex, int count) const
{
    return FindBackward(value, startIndex, count, EqualTo(c));
}

int String::LastIndexOf(const String& text) const
{
    return LastIndexOf(text, LastIndex(Length()));
}

int String::LastIndexOf(const String& text, int startIndex) const
{
    NotNull(text);
    return LastIndexOf(text, startIndex, CountBackFrom(startIndex, Length()));
}

int String::LastIndexOf(const String& text, int startIndex, int count) const
{
    NotNull(text);
    CheckBackwardRange(startIndex, count, Length());
    if (text.IsEmpty())
    {
        return startIndex;
    }
    if (text.Length() > count)
    {
        return -1;
    }
    const std::string_view range = Range(value, startIndex + 1 - count, count);
    const std::size_t found = range.rfind(text.Utf8());
    return found == std::string_view::npos ? -1 : IndexAt(value, range.data() + found);
}

int String::IndexOfAny(const Array<char32>& anyOf) const
{
    return IndexOfAny(anyOf, 0);
}

int String::IndexOfAny(const Array<char32>& anyOf, int startIndex) const
{
    NotNull(anyOf);
    return IndexOfAny(anyOf, startIndex, CountFrom(startIndex, Length()));
}

int String::IndexOfAny(const Array<char32>& anyOf, int startIndex, int count) const
{
    return FindForward(value, startIndex, count, OneOf(NotNull(anyOf)));
}

int String::LastIndexOfAny(const Array<char32>& anyOf) const
{
    return LastIndexOfAny(anyOf, LastIndex(Length()));
}

int String::LastIndexOfAny(const Array<char32>& anyOf, int startIndex) const
{
    NotNull(anyOf);
    return LastIndexOfAny(anyOf, startIndex, CountBackFrom(startIndex, Length()));
}

int String::LastIndexOfAny(const Array<char32>& anyOf, int startIndex, int count) const
{
    return FindBackward(value, startIndex, count, OneOf(NotNull(anyOf)));
}

bool String::StartsWith(const String& text) const
{
    return StartsWith(text, false);
}

bool String::StartsWith(const String& text, bool ignoreCase) const
{
    const int length = NotNull(text).Length();
    return length <= Length() && Compare(*this, 0, text, 0, length, ignoreCase) == 0;
}

bool String::EndsWith(const String& text) const
{
    return EndsWith(text, false);
}

bool String::EndsWith(const String& text, bool ignoreCase) const
{
    const int length = NotNull(text).Length();
    return length <= Length() && Compare(*this, Length() - length, text, 0, length, ignoreCase) == 0;
}
} // namespace Tesmo::System
