#include <Core/System/Text/UTF8Encoding.h>

#include "CodePoints.h"
#include <Core/System/Checks.h>
#include <Core/System/Utf8.h>

#include <algorithm>
#include <string>
#include <string_view>

namespace Tesmo::System::Text
{
namespace
{
constexpr int ByteCount(std::uint32_t codePoint)
{
    if (!IsScalar(codePoint))
    {
        return 0;
    }
    return codePoint < 0x80 ? 1 : codePoint < 0x800 ? 2 : codePoint < 0x10000 ? 3 : 4;
}

class UTF8Encoder : public Encoding::Encoder
{
public:
    Bytes Encode(char32 c) const override
    {
        Bytes bytes;
        bytes.count = ByteCount(c.value);
        if (bytes.count == 1)
        {
            bytes.values[0] = static_cast<unsigned char>(c.value);
        }
        else if (bytes.count > 1)
        {
            std::string sequence; // four bytes at most, so nothing is allocated
            Utf8::Append(sequence, c);
            std::copy(sequence.begin(), sequence.end(), bytes.values.begin());
        }
        return bytes;
    }

    String ToString() const override
    {
        return "UTF8Encoder";
    }
};

/// Accepts the same sequences as the storage of String.
class UTF8Decoder : public Encoding::Decoder
{
public:
    std::optional<char32> Decode(unsigned char byte) override
    {
        if (byte < 128)
        {
            pending.clear();
            return char32(int{byte});
        }
        const auto character = static_cast<char>(byte);
        if (!Utf8::IsContinuation(character))
        {
            pending.clear(); // an incomplete sequence is skipped
            if (Utf8::LengthByLead(character) > 1)
            {
                pending = character;
            }
        }
        else if (!pending.empty())
        {
            pending += character;
            return Complete();
        }
        return std::nullopt;
    }

    String ToString() const override
    {
        return "UTF8Decoder";
    }

private:
    std::optional<char32> Complete()
    {
        if (pending.size() < static_cast<std::size_t>(Utf8::LengthByLead(pending.front())))
        {
            return std::nullopt;
        }
        const char32 c = Utf8::Decode(pending);
        pending.clear();
        return c;
    }

    std::string pending;
};
} // namespace

UTF8Encoding::UTF8Encoding(bool emitsIdentifier) : Encoding(65001), encoderShouldEmitIdentifier(emitsIdentifier) {}

int UTF8Encoding::GetByteCount(char32 c) const
{
    return ByteCount(c.value);
}

int UTF8Encoding::GetCharCount(const ByteArray& bytes, int index, int count) const
{
    CheckRange(bytes, index, count);
    if (count == 0)
    {
        return 0;
    }
    const std::string text(bytes.begin() + index, bytes.begin() + index + count);
    return static_cast<int>(Utf8::Count(text));
}

int UTF8Encoding::GetMaxByteCount(int charCount) const
{
    return FourBytesEach(charCount);
}

int UTF8Encoding::GetMaxCharCount(int byteCount) const
{
    return NotNegative(byteCount);
}

Encoding::ByteArray UTF8Encoding::GetPreamble() const
{
    constexpr unsigned char Preamble[] = {0xEF, 0xBB, 0xBF};
    return encoderShouldEmitIdentifier ? ByteArray(Preamble, 3) : ByteArray(0);
}

Up<Encoding::Decoder> UTF8Encoding::CreateDecoder() const
{
    return Up<Decoder>(new UTF8Decoder);
}

Up<Encoding::Encoder> UTF8Encoding::CreateEncoder() const
{
    return Up<Encoder>(new UTF8Encoder);
}

UTF8Encoding& UTF8Encoding::operator=(const Encoding& other)
{
    Encoding::operator=(other);
    encoderShouldEmitIdentifier = static_cast<const UTF8Encoding&>(other).encoderShouldEmitIdentifier;
    return *this;
}

UTF8Encoding& UTF8Encoding::operator=(const UTF8Encoding& other)
{
    return *this = static_cast<const Encoding&>(other);
}
} // namespace Tesmo::System::Text
