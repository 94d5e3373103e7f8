#pragma once

#include <Core/System/Text/Encoding.h>

namespace Tesmo::System::Text
{
class CodePageTable;

/// Base of the single-byte code pages: ASCII below 128, a table above.
class ANSIEncoding : public Encoding
{
public:
    bool IsSingleByte() const override;
    using Encoding::GetByteCount;
    int GetByteCount(char32 c) const override;
    Up<Decoder> CreateDecoder() const override;
    Up<Encoder> CreateEncoder() const override;
    using Encoding::operator=;

protected:
    /// @param table      lives as long as the program
    /// @param className  begins the text of the encoder and the decoder; lives as long as the program
    ANSIEncoding(int codePage, const CodePageTable& table, const char* className);

private:
    const CodePageTable* table;
    const char* className;
};
} // namespace Tesmo::System::Text
