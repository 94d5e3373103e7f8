#pragma once

#include <Core/System/Text/Encoding.h>

namespace Tesmo::System::Text
{
/// UTF-32: four bytes a code point. Little endian is code page 12000, "utf-32"; big endian 12001, "utf-32BE".
class UTF32Encoding : public Encoding
{
public:
    /// @param byteOrderMark  whether there is a preamble: FF FE 00 00, or 00 00 FE FF for big endian
    explicit UTF32Encoding(bool bigEndian = false, bool byteOrderMark = true);
    UTF32Encoding(const UTF32Encoding&) = default;

    using Encoding::GetByteCount;
    int GetByteCount(char32 c) const override;
    int GetMaxByteCount(int charCount) const override;
    int GetMaxCharCount(int byteCount) const override;
    ByteArray GetPreamble() const override;
    Up<Decoder> CreateDecoder() const override;
    Up<Encoder> CreateEncoder() const override;
    UTF32Encoding& operator=(const Encoding& other) override;
    UTF32Encoding& operator=(const UTF32Encoding& other);

private:
    bool bigEndian;
    bool byteOrderMark;
};
} // namespace Tesmo::System::Text
