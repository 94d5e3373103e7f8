#include <Core/System/DateTime.h>
#include <Core/System/Type.h>

#include "System/ConvertToType.h"
#include "System/NumberCast.h"

namespace Tesmo::System
{
TypeCode DateTime::GetTypeCode() const
{
    return TypeCode::DateTime;
}

DateTime DateTime::ToDateTime(const IFormatProvider&) const
{
    return *this;
}

char32 DateTime::ToChar(const IFormatProvider&) const
{
    return CodePointCast(NumberCast<std::uint32_t>(ticks));
}

Up<Object> DateTime::ToType(const Type& type, const IFormatProvider& provider) const
{
    return ConvertToType(*this, *this, type, provider);
}

bool DateTime::ToBoolean(const IFormatProvider&) const
{
    return NumberCast<bool>(ticks);
}

std::uint8_t DateTime::ToByte(const IFormatProvider&) const
{
    return NumberCast<std::uint8_t>(ticks);
}

double DateTime::ToDouble(const IFormatProvider&) const
{
    return NumberCast<double>(ticks);
}

std::int16_t DateTime::ToInt16(const IFormatProvider&) const
{
    return NumberCast<std::int16_t>(ticks);
}

std::int32_t DateTime::ToInt32(const IFormatProvider&) const
{
    return NumberCast<std::int32_t>(ticks);
}

std::int64_t DateTime::ToInt64(const IFormatProvider&) const
{
    return NumberCast<std::int64_t>(ticks);
}

std::uint16_t DateTime::ToUInt16(const IFormatProvider&) const
{
    return NumberCast<std::uint16_t>(ticks);
}

std::uint32_t DateTime::ToUInt32(const IFormatProvider&) const
{
    return NumberCast<std::uint32_t>(ticks);
}

std::uint64_t DateTime::ToUInt64(const IFormatProvider&) const
{
    return NumberCast<std::uint64_t>(ticks);
}

std::int8_t DateTime::ToSByte(const IFormatProvider&) const
{
    return NumberCast<std::int8_t>(ticks);
}

float DateTime::ToSingle(const IFormatProvider&) const
{
    return NumberCast<float>(ticks);
}
} // namespace Tesmo::System
