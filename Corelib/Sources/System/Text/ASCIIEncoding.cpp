#include <Core/System/Text/ASCIIEncoding.h>

#include "CodePageTable.h"

namespace Tesmo::System::Text
{
namespace
{
class ASCIIEncoder : public Encoding::Encoder
{
public:
    Bytes Encode(char32 c) const override
    {
        return {{c.value < 128 ? static_cast<unsigned char>(c.value) : CodePageTable::Replacement}, 1};
    }

    String ToString() const override
    {
        return "ASCIIEncoder";
    }
};

class ASCIIDecoder : public Encoding::Decoder
{
public:
    std::optional<char32> Decode(unsigned char byte) override
    {
        return char32(int{byte < 128 ? byte : CodePageTable::Replacement});
    }

    String ToString() const override
    {
        return "ASCIIDecoder";
    }
};
} // namespace

ASCIIEncoding::ASCIIEncoding() : Encoding(20127) {}

bool ASCIIEncoding::IsSingleByte() const
{
    return true;
}

int ASCIIEncoding::GetByteCount(char32) const
{
    return 1;
}

Up<Encoding::Decoder> ASCIIEncoding::CreateDecoder() const
{
    return Up<Decoder>(new ASCIIDecoder);
}

Up<Encoding::Encoder> ASCIIEncoding::CreateEncoder() const
{
    return Up<Encoder>(new ASCIIEncoder);
}
} // namespace Tesmo::System::Text
