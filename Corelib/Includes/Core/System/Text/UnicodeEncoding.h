#pragma once

#include <Core/System/Text/Encoding.h>

namespace Tesmo::System::Text
{
/// UTF-16: two bytes a code point, a pair of surrogates from 65536 on. Values above 0x10FFFF give no bytes.
/// Little endian is code page 1200, "utf-16"; big endian 1201, "unicodeFFFE".
class UnicodeEncoding : public Encoding
{
public:
    /// @param byteOrderMark  whether there is a preamble: FF FE, or FE FF for big endian
    explicit UnicodeEncoding(bool bigEndian = false, bool byteOrderMark = true);
    UnicodeEncoding(const UnicodeEncoding&) = default;

    using Encoding::GetByteCount;
    int GetByteCount(char32 c) const override;
    int GetMaxByteCount(int charCount) const override;
    int GetMaxCharCount(int byteCount) const override;
    ByteArray GetPreamble() const override;
    Up<Decoder> CreateDecoder() const override;
    Up<Encoder> CreateEncoder() const override;
    UnicodeEncoding& operator=(const Encoding& other) override;
    UnicodeEncoding& operator=(const UnicodeEncoding& other);

private:
    bool bigEndian;
    bool byteOrderMark;
};
} // namespace Tesmo::System::Text
