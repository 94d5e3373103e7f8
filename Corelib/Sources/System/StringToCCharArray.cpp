#include <Core/System/String.h>

#include <System/Text/CodePageTable.h>

#include <algorithm>

namespace Tesmo::System
{
Up<char[]> String::ToCCharArray() const
{
    const auto length = static_cast<std::size_t>(Length());
    Up<char[]> characters(new char[length + 1]);
    char* const first = &characters[0];
    if (value.IsAscii())
    {
        std::copy_n(Utf8().data(), length, first);
    }
    else
    {
        std::transform(value.begin(), value.end(), first,
                       [](char32 c) { return static_cast<char>(Text::codePage437.ByteOf(c)); });
    }
    first[length] = '\0';
    return characters;
}
} // namespace Tesmo::System
