#include <Core/System/Text/UnicodeEncoding.h>

#include "CodePoints.h"
#include <Core/System/Checks.h>

namespace Tesmo::System::Text
{
namespace
{
int ByteCount(std::uint32_t codePoint)
{
    return codePoint > LastCodePoint ? 0 : codePoint < FirstSupplementary ? 2 : 4;
}

class UnicodeEncoder : public Encoding::Encoder
{
public:
    explicit UnicodeEncoder(bool isBigEndian) : bigEndian(isBigEndian) {}

    Bytes Encode(char32 c) const override
    {
        Bytes bytes;
        bytes.count = ByteCount(c.value);
        if (bytes.count == 2)
        {
            Write(bytes, 0, c.value);
        }
        else if (bytes.count == 4)
        {
            const std::uint32_t rest = c.value - FirstSupplementary;
            Write(bytes, 0, FirstHighSurrogate + (rest >> 10));
            Write(bytes, 2, FirstLowSurrogate + (rest & 0x3FF));
        }
        return bytes;
    }

    String ToString() const override
    {
        return bigEndian ? "UnicodeEncoder Big Endian" : "UnicodeEncoder";
    }

private:
    void Write(Bytes& bytes, std::size_t position, std::uint32_t unit) const
    {
        bytes.values[position + (bigEndian ? 0 : 1)] = static_cast<unsigned char>(unit >> 8);
        bytes.values[position + (bigEndian ? 1 : 0)] = static_cast<unsigned char>(unit);
    }

    bool bigEndian;
};

class UnicodeDecoder : public Encoding::Decoder
{
public:
    explicit UnicodeDecoder(bool isBigEndian) : bigEndian(isBigEndian) {}

    std::optional<char32> Decode(unsigned char byte) override
    {
        if (!pending)
        {
            pending = byte;
            return std::nullopt;
        }
        const std::uint32_t unit = bigEndian ? *pending * 256u + byte : byte * 256u + *pending;
        pending.reset();
        return Take(unit);
    }

    String ToString() const override
    {
        return bigEndian ? "UnicodeDecoder Big Endian" : "UnicodeDecoder";
    }

private:
    /// A surrogate without its partner is skipped.
    std::optional<char32> Take(std::uint32_t unit)
    {
        const std::uint32_t high = highSurrogate;
        highSurrogate = IsHighSurrogate(unit) ? unit : 0;
        if (IsLowSurrogate(unit) && high != 0)
        {
            return char32(FirstSupplementary + ((high - FirstHighSurrogate) << 10) + (unit - FirstLowSurrogate));
        }
        return IsScalar(unit) ? std::optional(char32(unit)) : std::nullopt;
    }

    bool bigEndian;
    std::optional<unsigned char> pending; ///< the first byte of a unit
    std::uint32_t highSurrogate = 0;      ///< the first unit of a pair, 0 for none
};
} // namespace

UnicodeEncoding::UnicodeEncoding(bool isBigEndian, bool hasByteOrderMark)
    : Encoding(isBigEndian ? 1201 : 1200),
      bigEndian(isBigEndian),
      byteOrderMark(hasByteOrderMark)
{
}

int UnicodeEncoding::GetByteCount(char32 c) const
{
    return ByteCount(c.value);
}

int UnicodeEncoding::GetMaxByteCount(int charCount) const
{
    return FourBytesEach(charCount);
}

int UnicodeEncoding::GetMaxCharCount(int byteCount) const
{
    return NotNegative(byteCount) / 2 + byteCount % 2;
}

Encoding::ByteArray UnicodeEncoding::GetPreamble() const
{
    constexpr unsigned char LittleEndian[] = {0xFF, 0xFE};
    constexpr unsigned char BigEndian[] = {0xFE, 0xFF};
    return byteOrderMark ? ByteArray(bigEndian ? BigEndian : LittleEndian, 2) : ByteArray(0);
}

Up<Encoding::Decoder> UnicodeEncoding::CreateDecoder() const
{
    return Up<Decoder>(new UnicodeDecoder(bigEndian));
}

Up<Encoding::Encoder> UnicodeEncoding::CreateEncoder() const
{
    return Up<Encoder>(new UnicodeEncoder(bigEndian));
}

UnicodeEncoding& UnicodeEncoding::operator=(const Encoding& other)
{
    Encoding::operator=(other);
    const auto& source = static_cast<const UnicodeEncoding&>(other);
    bigEndian = source.bigEndian;
    byteOrderMark = source.byteOrderMark;
    return *this;
}

UnicodeEncoding& UnicodeEncoding::operator=(const UnicodeEncoding& other)
{
    return *this = static_cast<const Encoding&>(other);
}
} // namespace Tesmo::System::Text
