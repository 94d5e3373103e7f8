#include <Core/System/String.h>

#include "CaseMapping.h"
#include <Core/System/Checks.h>

#include <algorithm>
#include <string_view>

namespace Tesmo::System
{
namespace
{
/// `Substring`'s length for all that remains: ustring::npos as an int.
constexpr int ToTheEnd = -1;

std::size_t Position(const ustring& text, int index)
{
    return text.BytePosition(static_cast<std::size_t>(index));
}

template <class Mapping>
String Map(const ustring& text, Mapping mapping)
{
    ustring mapped;
    mapped.Reserve(text.Bytes().size());
    for (const char32 c : text)
    {
        mapped.Append(mapping(c));
    }
    return String(std::move(mapped));
}
} // namespace

String String::Substring(int startIndex) const
{
    return Substring(startIndex, ToTheEnd);
}

String String::Substring(int startIndex, int length) const
{
    const int rest = CountFrom(startIndex, Length());
    const int count = length == ToTheEnd ? rest : std::min(NotNegative(length), rest);
    if (count == Length())
    {
        return *this;
    }
    const std::size_t first = Position(value, startIndex);
    return String(Utf8().substr(first, Position(value, startIndex + count) - first));
}

String String::Insert(int startIndex, const String& text) const
{
    CheckRange(startIndex, 0, Length());
    NotNull(text);
    std::string bytes = Utf8();
    return String(bytes.insert(Position(value, startIndex), text.Utf8()));
}

String String::Remove(int startIndex) const
{
    return Remove(startIndex, CountFrom(startIndex, Length()));
}

String String::Remove(int startIndex, int count) const
{
    CheckRange(startIndex, count, Length());
    const std::size_t first = Position(value, startIndex);
    std::string bytes = Utf8();
    return String(bytes.erase(first, Position(value, startIndex + count) - first));
}

String String::Replace(char32 oldChar, char32 newChar) const
{
    return Map(value, [oldChar, newChar](char32 c) { return c == oldChar ? newChar : c; });
}

String String::Replace(const String& oldValue, const String& newValue) const
{
    NotNull(oldValue);
    NotNull(newValue);
    if (oldValue.IsEmpty())
    {
        return *this;
    }
    const std::string_view rest = Utf8();
    const std::string_view part = oldValue.Utf8();
    std::string result;
    std::size_t start = 0;
    for (std::size_t found = rest.find(part); found != std::string_view::npos; found = rest.find(part, start))
    {
        result.append(rest, start, found - start).append(newValue.Utf8());
        start = found + part.size();
    }
    return String(result.append(rest, start));
}

String String::PadLeft(int totalWidth) const
{
    return PadLeft(totalWidth, U' ');
}

String String::PadLeft(int totalWidth, char32 paddingChar) const
{
    return totalWidth <= Length() ? *this : String(paddingChar, totalWidth - Length()) + *this;
}

String String::PadRight(int totalWidth) const
{
    return PadRight(totalWidth, U' ');
}

String String::PadRight(int totalWidth, char32 paddingChar) const
{
    return totalWidth <= Length() ? *this : *this + String(paddingChar, totalWidth - Length());
}

String String::ToLower() const
{
    return Map(value, LowerCase);
}

String String::ToUpper() const
{
    return Map(value, UpperCase);
}
} // namespace Tesmo::System
