#include <Core/System/Text/UTF32Encoding.h>

#include "CodePoints.h"
#include <Core/System/Checks.h>

namespace Tesmo::System::Text
{
namespace
{
/// Bits to shift for the byte at a position.
int Shift(bool bigEndian, int position)
{
    return 8 * (bigEndian ? 3 - position : position);
}

class UTF32Encoder : public Encoding::Encoder
{
public:
    explicit UTF32Encoder(bool isBigEndian) : bigEndian(isBigEndian) {}

    Bytes Encode(char32 c) const override
    {
        Bytes bytes;
        for (unsigned char& byte : bytes.values)
        {
            byte = static_cast<unsigned char>(c.value >> Shift(bigEndian, bytes.count++));
        }
        return bytes;
    }

    String ToString() const override
    {
        return bigEndian ? "UTF32Encoder Big Endian" : "UTF32Encoder";
    }

private:
    bool bigEndian;
};

class UTF32Decoder : public Encoding::Decoder
{
public:
    explicit UTF32Decoder(bool isBigEndian) : bigEndian(isBigEndian) {}

    std::optional<char32> Decode(unsigned char byte) override
    {
        pending |= std::uint32_t{byte} << Shift(bigEndian, pendingCount++);
        if (pendingCount < 4)
        {
            return std::nullopt;
        }
        const std::uint32_t codePoint = pending;
        pending = 0;
        pendingCount = 0;
        return IsScalar(codePoint) ? std::optional(char32(codePoint)) : std::nullopt;
    }

    String ToString() const override
    {
        return bigEndian ? "UTF32Decoder Big Endian" : "UTF32Decoder";
    }

private:
    bool bigEndian;
    std::uint32_t pending = 0;
    int pendingCount = 0;
};
} // namespace

UTF32Encoding::UTF32Encoding(bool isBigEndian, bool hasByteOrderMark)
    : Encoding(isBigEndian ? 12001 : 12000),
      bigEndian(isBigEndian),
      byteOrderMark(hasByteOrderMark)
{
}

int UTF32Encoding::GetByteCount(char32) const
{
    return 4;
}

int UTF32Encoding::GetMaxByteCount(int charCount) const
{
    return FourBytesEach(charCount);
}

int UTF32Encoding::GetMaxCharCount(int byteCount) const
{
    return NotNegative(byteCount) / 4 + (byteCount % 4 == 0 ? 0 : 1);
}

Encoding::ByteArray UTF32Encoding::GetPreamble() const
{
    constexpr unsigned char LittleEndian[] = {0xFF, 0xFE, 0x00, 0x00};
    constexpr unsigned char BigEndian[] = {0x00, 0x00, 0xFE, 0xFF};
    return byteOrderMark ? ByteArray(bigEndian ? BigEndian : LittleEndian, 4) : ByteArray(0);
}

Up<Encoding::Decoder> UTF32Encoding::CreateDecoder() const
{
    return Up<Decoder>(new UTF32Decoder(bigEndian));
}

Up<Encoding::Encoder> UTF32Encoding::CreateEncoder() const
{
    return Up<Encoder>(new UTF32Encoder(bigEndian));
}

UTF32Encoding& UTF32Encoding::operator=(const Encoding& other)
{
    Encoding::operator=(other);
    const auto& source = static_cast<const UTF32Encoding&>(other);
    bigEndian = source.bigEndian;
    byteOrderMark = source.byteOrderMark;
    return *this;
}

UTF32Encoding& UTF32Encoding::operator=(const UTF32Encoding& other)
{
    return *this = static_cast<const Encoding&>(other);
}
} // namespace Tesmo::System::Text
