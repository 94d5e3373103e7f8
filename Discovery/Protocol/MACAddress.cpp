#include "MACAddress.h"

#include <Core/System/ArgumentException.h>
#include <Core/System/Checks.h>
#include <Core/System/FormatException.h>
#include <Core/System/ThrowSite.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

namespace Zelkor::Discovery
{
using Tesmo::IsNull, Tesmo::Sp, Tesmo::System::ArgumentException, Tesmo::System::Array, Tesmo::System::Byte,
    Tesmo::System::FormatException, Tesmo::System::NotNull, Tesmo::System::String;

MACAddress::MACAddress(const Array<Byte>& source)
{
    NotNull(source);
    if (source.Length() != Size)
    {
        throw ArgumentException(ThrowSite);
    }
    std::copy(source.begin(), source.end(), bytes.begin());
}

MACAddress::MACAddress(const String& text)
{
    constexpr int hexadecimal = 16;
    NotNull(text);
    const Sp<Array<String>> groups = text.Split(':');
    if (groups->Length() > Size)
    {
        throw FormatException(ThrowSite);
    }
    std::transform(groups->begin(), groups->end(), bytes.begin(),
                   [](const String& group) { return Byte::Parse(group, hexadecimal); });
}

MACAddress::MACAddress(const MACAddress& other) : bytes(NotNull(other).bytes) {}

MACAddress& MACAddress::operator=(const MACAddress& other)
{
    bytes = NotNull(other).bytes;
    return *this;
}

String MACAddress::ToString() const
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    text.reserve(3 * bytes.size());
    for (const std::uint8_t byte : bytes)
    {
        text.append(text.empty() ? "" : ":");
        text += digits[byte >> 4];
        text += digits[byte & 0xF];
    }
    return String(std::move(text));
}

bool MACAddress::operator==(const MACAddress& other) const
{
    return !IsNull(other) && bytes == other.bytes;
}
} // namespace Zelkor::Discovery
