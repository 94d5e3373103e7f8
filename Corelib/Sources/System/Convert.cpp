#include <Core/System/Convert.h>

#include <Core/System/ArgumentNullException.h>
#include <Core/System/Checks.h>
#include <Core/System/DateTime.h>
#include <Core/System/FormatProvider.h>

namespace Tesmo::System
{
bool Convert::ToBoolean(const IConvertible& value)
{
    return NotNull(value).ToBoolean(FormatProvider::Default());
}

std::uint8_t Convert::ToByte(const IConvertible& value)
{
    return NotNull(value).ToByte(FormatProvider::Default());
}

char32 Convert::ToChar(const IConvertible& value)
{
    return NotNull(value).ToChar(FormatProvider::Default());
}

DateTime Convert::ToDateTime(const IConvertible& value)
{
    return NotNull(value).ToDateTime(FormatProvider::Default());
}

double Convert::ToDouble(const IConvertible& value)
{
    return NotNull(value).ToDouble(FormatProvider::Default());
}

std::int16_t Convert::ToInt16(const IConvertible& value)
{
    return NotNull(value).ToInt16(FormatProvider::Default());
}

std::int32_t Convert::ToInt32(const IConvertible& value)
{
    return NotNull(value).ToInt32(FormatProvider::Default());
}

std::int64_t Convert::ToInt64(const IConvertible& value)
{
    return NotNull(value).ToInt64(FormatProvider::Default());
}

std::int8_t Convert::ToSByte(const IConvertible& value)
{
    return NotNull(value).ToSByte(FormatProvider::Default());
}

float Convert::ToSingle(const IConvertible& value)
{
    return NotNull(value).ToSingle(FormatProvider::Default());
}

std::uint16_t Convert::ToUInt16(const IConvertible& value)
{
    return NotNull(value).ToUInt16(FormatProvider::Default());
}

std::uint32_t Convert::ToUInt32(const IConvertible& value)
{
    return NotNull(value).ToUInt32(FormatProvider::Default());
}

std::uint64_t Convert::ToUInt64(const IConvertible& value)
{
    return NotNull(value).ToUInt64(FormatProvider::Default());
}

String Convert::ToString(const IConvertible& value)
{
    const auto* const object = dynamic_cast<const Object*>(&NotNull(value));
    return object == nullptr ? String() : object->ToString();
}
} // namespace Tesmo::System
