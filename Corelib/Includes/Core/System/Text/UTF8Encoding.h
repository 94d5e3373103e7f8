#pragma once

#include <Core/System/Text/Encoding.h>

namespace Tesmo::System::Text
{
/// Code page 65001, "utf-8": one to four bytes a code point. Surrogates and values above 0x10FFFF give no bytes.
class UTF8Encoding : public Encoding
{
public:
    /// @param emitsIdentifier  whether there is a preamble: EF BB BF
    explicit UTF8Encoding(bool emitsIdentifier = false);
    UTF8Encoding(const UTF8Encoding&) = default;

    using Encoding::GetByteCount;
    int GetByteCount(char32 c) const override;
    using Encoding::GetCharCount;
    int GetCharCount(const ByteArray& bytes, int index, int count) const override;
    int GetMaxByteCount(int charCount) const override; ///< four bytes a code point
    int GetMaxCharCount(int byteCount) const override;
    ByteArray GetPreamble() const override;
    Up<Decoder> CreateDecoder() const override;
    Up<Encoder> CreateEncoder() const override;
    UTF8Encoding& operator=(const Encoding& other) override;
    UTF8Encoding& operator=(const UTF8Encoding& other);

private:
    bool encoderShouldEmitIdentifier;
};
} // namespace Tesmo::System::Text
