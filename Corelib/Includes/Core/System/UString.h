#pragma once

#include <Core/System/Char32.h>
#include <Core/System/Utf8.h>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>

namespace Tesmo
{
/// Storage of a String: UTF-8 bytes and the number of code points in them, kept up to date by every change. Text of up
/// to 15 bytes lies in the standard string's inner buffer. Bytes that form no sequence are kept but not counted.
class ustring
{
public:
    /// End of the text, and the result of a failed search.
    static constexpr std::size_t npos = static_cast<std::size_t>(-1);

    /// Walks over code points in either direction. It becomes invalid when the text changes. At an end it reads as code
    /// point 0 and stays there when stepped further.
    template <bool Reverse>
    struct basic_iterator
    {
        using iterator_category = std::bidirectional_iterator_tag;
        using value_type = char32;
        using difference_type = std::ptrdiff_t;
        using pointer = const char32*;
        using reference = char32;

        const std::string* owner = nullptr;
        std::ptrdiff_t byteIndex = -1;  ///< position of the current sequence in bytes, -1 at the end
        std::int8_t sequenceLength = 0; ///< bytes of the current sequence
        std::int32_t charIndex = 0;     ///< index of the current code point

        /// Code point 0 at the end.
        char32 operator*() const
        {
            return byteIndex < 0 ? char32() : Utf8::Decode(Sequence());
        }

        /// The bytes of the current sequence; empty at the end.
        std::string_view Sequence() const
        {
            return byteIndex < 0
                       ? std::string_view()
                       : std::string_view(owner->data() + byteIndex, static_cast<std::size_t>(sequenceLength));
        }

        /// One code point on in the direction of the walk; none at the end.
        basic_iterator& operator++()
        {
            Reverse ? Backward() : Forward();
            return *this;
        }

        /// The same; gives where it stood before.
        basic_iterator operator++(int)
        {
            return std::exchange(*this, ++basic_iterator(*this));
        }

        /// One code point back; from the end to the last code point of the walk.
        basic_iterator& operator--()
        {
            if (byteIndex < 0)
            {
                FromEnd();
            }
            else
            {
                Reverse ? Forward() : Backward();
            }
            return *this;
        }

        /// The same; gives where it stood before.
        basic_iterator operator--(int)
        {
            return std::exchange(*this, --basic_iterator(*this));
        }

        bool operator==(const basic_iterator& other) const
        {
            return owner == other.owner && byteIndex == other.byteIndex;
        }

    private:
        friend class ustring;

        void Stand(std::size_t position)
        {
            const bool inside = position < owner->size();
            byteIndex = inside ? static_cast<std::ptrdiff_t>(position) : -1;
            sequenceLength = inside ? static_cast<std::int8_t>(Utf8::SequenceAt(*owner, position)) : std::int8_t{0};
        }

        void Forward()
        {
            if (byteIndex >= 0)
            {
                charIndex++;
                Stand(Utf8::FindNext(*owner, static_cast<std::size_t>(byteIndex + sequenceLength)));
            }
        }

        void Backward()
        {
            if (byteIndex >= 0)
            {
                charIndex--;
                Stand(Utf8::FindPrevious(*owner, static_cast<std::size_t>(byteIndex)));
            }
        }

        void FromEnd()
        {
            charIndex += Reverse ? 1 : -1;
            Stand(Reverse ? Utf8::FindNext(*owner, 0) : Utf8::FindPrevious(*owner, owner->size()));
        }
    };

    using iterator = basic_iterator<false>;
    using reverse_iterator = basic_iterator<true>;
    using const_iterator = iterator; // a walk never changes the text
    using const_reverse_iterator = reverse_iterator;

    ustring() = default;
    ustring(const ustring&) = default;
    ustring(ustring&& other) noexcept : length(std::exchange(other.length, 0)), bytes(std::move(other.bytes))
    {
        other.bytes.clear();
    }
    ustring& operator=(const ustring&) = default;
    ustring& operator=(ustring&& other) noexcept
    {
        ustring taken(std::move(other));
        std::swap(length, taken.length);
        bytes.swap(taken.bytes);
        return *this;
    }
    ~ustring() = default;

    /// The bytes as they are, unchecked, or count copies of c.
    explicit ustring(std::string utf8);
    ustring(char32 c, std::size_t count);

    /// The text whose code points are the values of the bytes, one for one (the ISO 8859-1 reading).
    static ustring FromLatin1(const unsigned char* bytes, std::size_t size);

    /// Number of code points.
    std::int32_t Length() const
    {
        return length;
    }

    /// UTF-8, with the bytes that form no sequence.
    const std::string& Bytes() const
    {
        return bytes;
    }

    /// True when every byte is a code point of its own, so that byte positions are indexes.
    bool IsAscii() const
    {
        return bytes.size() == static_cast<std::size_t>(length);
    }

    /// Walks over the code points, from the first on or from the last back.
    const_iterator begin() const;
    const_iterator end() const;
    const_reverse_iterator rbegin() const;
    const_reverse_iterator rend() const;

    /// A walk that begins at an index; end() from Length() on.
    const_iterator From(std::size_t charIndex) const;
    /// A walk backwards that begins at an index below Length().
    const_reverse_iterator BackFrom(std::size_t charIndex) const;

    /// A sequence that is cut short at the end becomes a code point when other begins with the rest of it.
    void Append(const ustring& other);
    void Append(char32 c);
    /// Makes room for a text of byteCount bytes in all, so that appending up to there allocates nothing.
    void Reserve(std::size_t byteCount);

    /// Byte position of a code point's index; 0 for the index 0, the byte count for the index Length(); npos past it.
    std::size_t BytePosition(std::size_t charIndex) const;

    bool operator==(const ustring& other) const
    {
        return length == other.length && bytes == other.bytes;
    }

private:
    /// Appends bytes that hold count sequences, and counts the one that may form across the joint.
    void Join(std::string_view added, std::int32_t count);

    std::int32_t length = 0;
    std::string bytes;
};
} // namespace Tesmo
