#pragma once

#include <Core/System/Char32.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace Tesmo::System::Text
{
/// A single-byte code page: identical with ASCII below 128, a table above.
class CodePageTable
{
public:
    using UpperHalf = std::array<char16_t, 128>; ///< the code points of the bytes 128 to 255

    static constexpr unsigned char Replacement = '?';

    constexpr explicit CodePageTable(const UpperHalf& table) : codePoints(table)
    {
        for (std::size_t i = 0; i < order.size(); i++)
        {
            order[i] = static_cast<unsigned char>(i);
        }
        std::sort(order.begin(), order.end(),
                  [&table](unsigned char left, unsigned char right) { return table[left] < table[right]; });
    }

    /// The byte of a code point, the replacement where the page has none.
    constexpr unsigned char ByteOf(char32 c) const
    {
        if (c.value < 128)
        {
            return static_cast<unsigned char>(c.value);
        }
        const auto* const place = std::lower_bound(order.begin(), order.end(), c.value,
                                                   [this](unsigned char row, std::uint32_t codePoint)
                                                   { return codePoints[row] < codePoint; });
        const bool isFound = place != order.end() && codePoints[*place] == c.value;
        return isFound ? static_cast<unsigned char>(*place + 128) : Replacement;
    }

    constexpr char32 CodePointOf(unsigned char byte) const
    {
        return byte < 128 ? char32(int{byte}) : char32(std::uint32_t{codePoints[byte - 128u]});
    }

private:
    UpperHalf codePoints;
    std::array<unsigned char, 128> order{}; ///< rows of codePoints, ascending by code point
};

extern const CodePageTable codePage437;
extern const CodePageTable codePage28591;
extern const CodePageTable codePage28592;
} // namespace Tesmo::System::Text
