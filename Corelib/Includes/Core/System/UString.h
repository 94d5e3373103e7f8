#pragma once

#include <Core/System/Char32.h>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>

namespace Tesmo
{
/// Storage of a String: UTF-8 bytes and the number of code points in them, kept up to date by every change. Text of up
/// to 15 bytes lies in the standard string's inner buffer. Bytes that form no sequence are kept but not counted.
class ustring
{
public:
    /// End of the text, and the result of a failed search.
    static constexpr std::size_t npos = static_cast<std::size_t>(-1);

    /// Walks over code points in either direction. It becomes invalid when the text changes.
    template <bool Const, bool Reverse>
    struct basic_iterator
    {
        using iterator_category = std::bidirectional_iterator_tag;
        using value_type = char32;
        using difference_type = std::ptrdiff_t;
        using pointer = const char32*;
        using reference = char32;

        const std::string* owner = nullptr;
        std::ptrdiff_t byteIndex = -1;   ///< position of the current sequence in bytes, -1 at the end
        std::int8_t sequenceLength = 0;  ///< bytes of the current sequence
        std::int32_t charIndex = 0;      ///< index of the current code point

        char32 operator*() const;
        basic_iterator& operator++();
        basic_iterator operator++(int);
        basic_iterator& operator--();
        basic_iterator operator--(int);
        bool operator==(const basic_iterator& other) const;
    };

    using iterator = basic_iterator<false, false>;
    using const_iterator = basic_iterator<true, false>;
    using reverse_iterator = basic_iterator<false, true>;
    using const_reverse_iterator = basic_iterator<true, true>;

    ustring() = default;
    explicit ustring(std::string utf8);
    ustring(char32 c, std::size_t count);

    /// The text whose code points are the values of the bytes, one for one (the ISO 8859-1 reading).
    static ustring FromLatin1(const unsigned char* bytes, std::size_t size);

    /// Number of code points.
    std::int32_t Length() const
    {
        return length;
    }

    const std::string& Bytes() const
    {
        return bytes;
    }

    const_iterator begin() const;
    const_iterator end() const;
    const_reverse_iterator rbegin() const;
    const_reverse_iterator rend() const;

    void Append(const ustring& other);
    void Append(char32 c);
    void Reserve(std::size_t byteCount);

    /// Byte position of a code point's index; the byte count for the index Length(); npos past it.
    std::size_t BytePosition(std::size_t charIndex) const;

    bool operator==(const ustring& other) const
    {
        return length == other.length && bytes == other.bytes;
    }

private:
    std::int32_t length = 0;
    std::string bytes;
};
} // namespace Tesmo
