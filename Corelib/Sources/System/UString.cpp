#include <Core/System/UString.h>

#include <algorithm>

namespace Tesmo
{
namespace
{
/// Position of the last byte that is no continuation byte, looking back no further than a sequence reaches.
std::size_t LastLead(std::string_view bytes)
{
    const std::size_t reach = std::min(bytes.size(), Utf8::MaxSequenceLength);
    for (std::size_t back = 1; back <= reach; back++)
    {
        if (!Utf8::IsContinuation(bytes[bytes.size() - back]))
        {
            return bytes.size() - back;
        }
    }
    return std::string_view::npos;
}

std::string_view View(const unsigned char* bytes, std::size_t size)
{
    return {reinterpret_cast<const char*>(bytes), size};
}
} // namespace

ustring::ustring(std::string utf8) : length(static_cast<std::int32_t>(Utf8::Count(utf8))), bytes(std::move(utf8)) {}

ustring::ustring(char32 c, std::size_t count) : length(static_cast<std::int32_t>(count))
{
    Utf8::Append(bytes, c);
    const std::string sequence = bytes;
    bytes.reserve(count * sequence.size());
    bytes.clear();
    for (std::size_t i = 0; i < count; i++)
    {
        bytes += sequence;
    }
}

ustring ustring::FromLatin1(const unsigned char* sourceBytes, std::size_t size)
{
    const std::string_view view = View(sourceBytes, size);
    ustring text;
    text.length = static_cast<std::int32_t>(size);
    text.bytes.reserve(size);
    for (std::size_t position = 0; position < size;)
    {
        const std::size_t run = Utf8::AsciiRun(view, position);
        text.bytes += view.substr(position, run);
        position += run;
        for (; position < size && sourceBytes[position] >= 128; position++)
        {
            Utf8::Append(text.bytes, char32(std::uint32_t{sourceBytes[position]}));
        }
    }
    return text;
}

ustring::const_iterator ustring::begin() const
{
    return From(0);
}

ustring::const_iterator ustring::end() const
{
    const_iterator last;
    last.owner = &bytes;
    last.charIndex = length;
    return last;
}

ustring::const_reverse_iterator ustring::rbegin() const
{
    const_reverse_iterator first = rend();
    first.charIndex = length - 1;
    first.Stand(Utf8::FindPrevious(bytes, bytes.size()));
    return first;
}

ustring::const_reverse_iterator ustring::rend() const
{
    const_reverse_iterator last;
    last.owner = &bytes;
    last.charIndex = -1;
    return last;
}

ustring::const_iterator ustring::From(std::size_t charIndex) const
{
    const_iterator first = end();
    if (charIndex < static_cast<std::size_t>(length))
    {
        first.charIndex = static_cast<std::int32_t>(charIndex);
        first.Stand(Utf8::FindNext(bytes, BytePosition(charIndex)));
    }
    return first;
}

ustring::const_reverse_iterator ustring::BackFrom(std::size_t charIndex) const
{
    const const_iterator forward = From(charIndex);
    const_reverse_iterator first = rend();
    first.byteIndex = forward.byteIndex;
    first.sequenceLength = forward.sequenceLength;
    first.charIndex = forward.charIndex;
    return first;
}

void ustring::Append(const ustring& other)
{
    Join(other.bytes, other.length);
}

void ustring::Append(char32 c)
{
    Utf8::Append(bytes, c); // starts with a lead byte, so it completes no sequence before it
    length++;
}

void ustring::Reserve(std::size_t byteCount)
{
    bytes.reserve(byteCount);
}

std::size_t ustring::BytePosition(std::size_t charIndex) const
{
    const auto count = static_cast<std::size_t>(length);
    if (charIndex > count)
    {
        return npos;
    }
    if (IsAscii() || charIndex == 0)
    {
        return charIndex;
    }
    return charIndex == count ? bytes.size() : Utf8::Find(bytes, charIndex);
}

void ustring::Join(std::string_view added, std::int32_t count)
{
    const std::size_t joint =
        added.empty() || !Utf8::IsContinuation(added.front()) ? std::string_view::npos : LastLead(bytes);
    const bool wasCut = joint != std::string_view::npos && Utf8::SequenceAt(bytes, joint) == 0;
    bytes += added;
    length += count + (wasCut && Utf8::SequenceAt(bytes, joint) > 0 ? 1 : 0);
}
} // namespace Tesmo
