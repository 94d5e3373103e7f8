#include <Core/System/String.h>

#include <Core/System/ArgumentOutOfRangeException.h>
#include <Core/System/Boolean.h>
#include <Core/System/Byte.h>
#include <Core/System/DateTime.h>
#include <Core/System/Double.h>
#include <Core/System/FormatException.h>
#include <Core/System/Int16.h>
#include <Core/System/Int32.h>
#include <Core/System/Int64.h>
#include <Core/System/SByte.h>
#include <Core/System/Single.h>
#include <Core/System/ThrowSite.h>
#include <Core/System/Type.h>
#include <Core/System/UInt16.h>
#include <Core/System/UInt32.h>
#include <Core/System/UInt64.h>

#include "System/ConvertToType.h"

#include <array>
#include <string_view>

namespace Tesmo::System
{
namespace
{
/// Reads "dd/mm/yyyy hh:mm:ss", as DateTime prints itself.
DateTime ParseMoment(std::string_view text)
{
    constexpr std::string_view shape = "00/00/0000 00:00:00";
    std::array<int, 6> fields{}; // day, month, year, hour, minute, second
    std::size_t field = 0;
    bool matches = text.size() == shape.size();
    for (std::size_t i = 0; matches && i < shape.size(); ++i)
    {
        const bool isDigit = text[i] >= '0' && text[i] <= '9';
        matches = shape[i] == '0' ? isDigit : text[i] == shape[i];
        fields[field] = isDigit ? fields[field] * 10 + (text[i] - '0') : fields[field];
        field += isDigit ? 0 : 1;
    }
    try
    {
        if (matches)
        {
            return DateTime(fields[2], fields[1], fields[0], fields[3], fields[4], fields[5]);
        }
    }
    catch (const ArgumentOutOfRangeException&) // a day or an hour that there is not
    {
    }
    throw FormatException(ThrowSite);
}
} // namespace

TypeCode String::GetTypeCode() const
{
    return TypeCode::String;
}

char32 String::ToChar(const IFormatProvider&) const
{
    if (Length() != 1)
    {
        throw FormatException(ThrowSite);
    }
    return *value.begin();
}

DateTime String::ToDateTime(const IFormatProvider&) const
{
    return ParseMoment(Utf8());
}

Up<Object> String::ToType(const Type& type, const IFormatProvider& provider) const
{
    return ConvertToType(*this, *this, type, provider);
}

bool String::ToBoolean(const IFormatProvider&) const
{
    return Boolean::Parse(*this);
}

std::uint8_t String::ToByte(const IFormatProvider&) const
{
    return Byte::Parse(*this);
}

double String::ToDouble(const IFormatProvider&) const
{
    return Double::Parse(*this);
}

std::int16_t String::ToInt16(const IFormatProvider&) const
{
    return Int16::Parse(*this);
}

std::int32_t String::ToInt32(const IFormatProvider&) const
{
    return Int32::Parse(*this);
}

std::int64_t String::ToInt64(const IFormatProvider&) const
{
    return Int64::Parse(*this);
}

std::int8_t String::ToSByte(const IFormatProvider&) const
{
    return SByte::Parse(*this);
}

float String::ToSingle(const IFormatProvider&) const
{
    return Single::Parse(*this);
}

std::uint16_t String::ToUInt16(const IFormatProvider&) const
{
    return UInt16::Parse(*this);
}

std::uint32_t String::ToUInt32(const IFormatProvider&) const
{
    return UInt32::Parse(*this);
}

std::uint64_t String::ToUInt64(const IFormatProvider&) const
{
    return UInt64::Parse(*this);
}
} // namespace Tesmo::System
