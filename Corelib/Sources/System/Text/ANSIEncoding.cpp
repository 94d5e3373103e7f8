#include <Core/System/Text/ANSIEncoding.h>

#include "CodePageTable.h"

#include <Core/System/Text/CodePage28591Encoding.h>
#include <Core/System/Text/CodePage28592Encoding.h>
#include <Core/System/Text/CodePage437Encoding.h>

namespace Tesmo::System::Text
{
namespace
{
class ANSIEncoder : public Encoding::Encoder
{
public:
    ANSIEncoder(const CodePageTable& codePage, const char* pageName) : table(codePage), name(pageName) {}

    Bytes Encode(char32 c) const override
    {
        return {{table.ByteOf(c)}, 1};
    }

    String ToString() const override
    {
        return String(name) + "Encoder";
    }

private:
    const CodePageTable& table;
    const char* name;
};

class ANSIDecoder : public Encoding::Decoder
{
public:
    ANSIDecoder(const CodePageTable& codePage, const char* pageName) : table(codePage), name(pageName) {}

    std::optional<char32> Decode(unsigned char byte) override
    {
        return table.CodePointOf(byte);
    }

    String ToString() const override
    {
        return String(name) + "Decoder";
    }

private:
    const CodePageTable& table;
    const char* name;
};
} // namespace

ANSIEncoding::ANSIEncoding(int ownCodePage, const CodePageTable& codePageTable, const char* ownClassName)
    : Encoding(ownCodePage),
      table(&codePageTable),
      className(ownClassName)
{
}

bool ANSIEncoding::IsSingleByte() const
{
    return true;
}

int ANSIEncoding::GetByteCount(char32) const
{
    return 1;
}

Up<Encoding::Decoder> ANSIEncoding::CreateDecoder() const
{
    return Up<Decoder>(new ANSIDecoder(*table, className));
}

Up<Encoding::Encoder> ANSIEncoding::CreateEncoder() const
{
    return Up<Encoder>(new ANSIEncoder(*table, className));
}

CodePage437Encoding::CodePage437Encoding() : ANSIEncoding(437, codePage437, "CodePage437") {}

CodePage28591Encoding::CodePage28591Encoding() : ANSIEncoding(28591, codePage28591, "CodePage28591") {}

CodePage28592Encoding::CodePage28592Encoding() : ANSIEncoding(28592, codePage28592, "CodePage28592") {}
} // namespace Tesmo::System::Text
