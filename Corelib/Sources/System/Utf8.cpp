#include <Core/System/Utf8.h>

#include <algorithm>
#include <cstring>

namespace Tesmo::Utf8
{
std::size_t AsciiRun(std::string_view bytes, std::size_t position)
{
    constexpr std::uint64_t HighBits = 0x8080808080808080;
    std::size_t end = position;
    for (std::uint64_t block = 0; bytes.size() - end >= sizeof(block); end += sizeof(block))
    {
        std::memcpy(&block, bytes.data() + end, sizeof(block));
        if ((block & HighBits) != 0)
        {
            break;
        }
    }
    while (end < bytes.size() && static_cast<unsigned char>(bytes[end]) < 128)
    {
        end++;
    }
    return end - position;
}

std::size_t Count(std::string_view bytes)
{
    std::size_t count = 0;
    for (std::size_t position = 0; position < bytes.size();)
    {
        const std::size_t run = AsciiRun(bytes, position);
        count += run;
        position += run;
        if (position < bytes.size())
        {
            const std::size_t length = SequenceAt(bytes, position);
            count += length > 0 ? 1 : 0;
            position += std::max<std::size_t>(length, 1);
        }
    }
    return count;
}

std::size_t Find(std::string_view bytes, std::size_t index)
{
    std::size_t position = 0;
    while (position < bytes.size())
    {
        const std::size_t run = AsciiRun(bytes, position);
        if (index < run)
        {
            return position + index;
        }
        index -= run;
        position = FindNext(bytes, position + run);
        if (index == 0 || position == bytes.size())
        {
            return position;
        }
        index--;
        position += SequenceAt(bytes, position);
    }
    return position;
}

void Append(std::string& bytes, char32 codePoint)
{
    constexpr std::uint32_t Replacement = 0xFFFD; // Unicode: REPLACEMENT CHARACTER
    const std::uint32_t value = codePoint.value <= 0x7FFFFFFF ? codePoint.value : Replacement;
    if (value < 128)
    {
        bytes += static_cast<char>(value);
        return;
    }
    // n bytes carry 5 n + 1 bits, from 11 in two bytes to 31 in six.
    const int bits = static_cast<int>(std::bit_width(value)); // unsigned in older libraries
    const int length = bits <= 11 ? 2 : (bits + 3) / 5;
    const std::uint32_t leadMark = (0xFFu << (8 - length)) & 0xFFu;
    int shift = 6 * (length - 1);
    bytes += static_cast<char>(leadMark | value >> shift);
    while (shift > 0)
    {
        shift -= 6;
        bytes += static_cast<char>(0x80u | (value >> shift & 0x3Fu));
    }
}
} // namespace Tesmo::Utf8
