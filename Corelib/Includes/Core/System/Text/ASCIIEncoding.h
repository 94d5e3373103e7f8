#pragma once

#include <Core/System/Text/Encoding.h>

namespace Tesmo::System::Text
{
/// Code page 20127, "us-ascii": one byte a code point. From 128 on code points and bytes become '?'.
class ASCIIEncoding : public Encoding
{
public:
    /// Without a preamble; all objects of the class behave alike.
    ASCIIEncoding();

    bool IsSingleByte() const override;
    using Encoding::GetByteCount;
    int GetByteCount(char32 c) const override;
    Up<Decoder> CreateDecoder() const override;
    Up<Encoder> CreateEncoder() const override;
    using Encoding::operator=;
};
} // namespace Tesmo::System::Text
