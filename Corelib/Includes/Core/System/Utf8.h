#pragma once

#include <Core/System/Char32.h>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace Tesmo::Utf8
{
/// Bytes of the longest sequence: the six-byte form of early UTF-8 (RFC 2279).
constexpr std::size_t MaxSequenceLength = 6;

/// Length of a sequence by its lead byte: 1 to 6; 0 for a continuation byte, -1 for a byte that is neither.
constexpr int LengthByLead(char lead)
{
    const int ones = std::countl_one(static_cast<unsigned char>(lead));
    if (ones == 0)
    {
        return 1;
    }
    return ones == 1 ? 0 : ones > static_cast<int>(MaxSequenceLength) ? -1 : ones;
}

/// True for 0x80 to 0xBF.
constexpr bool IsContinuation(char byte)
{
    return LengthByLead(byte) == 0;
}

/// Length of the sequence that begins at position; 0 where none begins or where it is cut short. As no continuation
/// byte is a lead byte, it does not matter where a walk begins: each walk, in either direction, meets the same sequences.
constexpr std::size_t SequenceAt(std::string_view bytes, std::size_t position)
{
    const int expected = LengthByLead(bytes[position]);
    if (expected <= 1)
    {
        return expected == 1 ? 1 : 0;
    }
    const auto length = static_cast<std::size_t>(expected);
    if (length > bytes.size() - position)
    {
        return 0;
    }
    for (std::size_t i = 1; i < length; i++)
    {
        if (!IsContinuation(bytes[position + i]))
        {
            return 0;
        }
    }
    return length;
}

/// The code point of a sequence as SequenceAt found it: the low bits of the lead byte, then six bits a byte.
constexpr char32 Decode(std::string_view sequence)
{
    const auto lead = static_cast<unsigned char>(sequence[0]);
    if (sequence.size() == 1)
    {
        return char32(std::uint32_t{lead});
    }
    std::uint32_t codePoint = lead & (0x7Fu >> sequence.size());
    for (const char byte : sequence.substr(1))
    {
        codePoint = codePoint << 6 | (static_cast<unsigned char>(byte) & 0x3Fu);
    }
    return char32(codePoint);
}

/// Position of the first sequence at or behind position; bytes.size() if there is none.
constexpr std::size_t FindNext(std::string_view bytes, std::size_t position)
{
    while (position < bytes.size() && SequenceAt(bytes, position) == 0)
    {
        position++;
    }
    return position;
}

/// Position of the last sequence that begins before position; npos if there is none.
constexpr std::size_t FindPrevious(std::string_view bytes, std::size_t position)
{
    while (position > 0)
    {
        position--;
        if (SequenceAt(bytes, position) > 0)
        {
            return position;
        }
    }
    return std::string_view::npos;
}

/// Number of bytes below 128 from position on.
std::size_t AsciiRun(std::string_view bytes, std::size_t position);

/// Number of sequences. Bytes that form none are passed over.
std::size_t Count(std::string_view bytes);

/// Position of the sequence with that index; bytes.size() if there are not so many.
std::size_t Find(std::string_view bytes, std::size_t index);

/// Appends the shortest sequence of a code point. From 2^31 on there is none: U+FFFD takes its place.
void Append(std::string& bytes, char32 codePoint);
} // namespace Tesmo::Utf8
