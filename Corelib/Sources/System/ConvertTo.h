#pragma once

#include <Core/System/Convertible.h>
#include <Core/System/DateTime.h>

#include "ConvertToType.h"

namespace Tesmo::System
{
// For the sources that instantiate Convertible.

template <class Self>
bool Convertible<Self>::ToBoolean(const IFormatProvider&) const
{
    return static_cast<const Self*>(this)->template ConvertTo<bool>();
}

template <class Self>
std::uint8_t Convertible<Self>::ToByte(const IFormatProvider&) const
{
    return static_cast<const Self*>(this)->template ConvertTo<std::uint8_t>();
}

template <class Self>
char32 Convertible<Self>::ToChar(const IFormatProvider&) const
{
    return static_cast<const Self*>(this)->template ConvertTo<char32>();
}

template <class Self>
DateTime Convertible<Self>::ToDateTime(const IFormatProvider&) const
{
    return static_cast<const Self*>(this)->template ConvertTo<DateTime>();
}

template <class Self>
double Convertible<Self>::ToDouble(const IFormatProvider&) const
{
    return static_cast<const Self*>(this)->template ConvertTo<double>();
}

template <class Self>
std::int16_t Convertible<Self>::ToInt16(const IFormatProvider&) const
{
    return static_cast<const Self*>(this)->template ConvertTo<std::int16_t>();
}

template <class Self>
std::int32_t Convertible<Self>::ToInt32(const IFormatProvider&) const
{
    return static_cast<const Self*>(this)->template ConvertTo<std::int32_t>();
}

template <class Self>
std::int64_t Convertible<Self>::ToInt64(const IFormatProvider&) const
{
    return static_cast<const Self*>(this)->template ConvertTo<std::int64_t>();
}

template <class Self>
std::uint16_t Convertible<Self>::ToUInt16(const IFormatProvider&) const
{
    return static_cast<const Self*>(this)->template ConvertTo<std::uint16_t>();
}

template <class Self>
std::uint32_t Convertible<Self>::ToUInt32(const IFormatProvider&) const
{
    return static_cast<const Self*>(this)->template ConvertTo<std::uint32_t>();
}

template <class Self>
std::uint64_t Convertible<Self>::ToUInt64(const IFormatProvider&) const
{
    return static_cast<const Self*>(this)->template ConvertTo<std::uint64_t>();
}

template <class Self>
std::int8_t Convertible<Self>::ToSByte(const IFormatProvider&) const
{
    return static_cast<const Self*>(this)->template ConvertTo<std::int8_t>();
}

template <class Self>
float Convertible<Self>::ToSingle(const IFormatProvider&) const
{
    return static_cast<const Self*>(this)->template ConvertTo<float>();
}

template <class Self>
Up<Object> Convertible<Self>::ToType(const Type& type, const IFormatProvider& provider) const
{
    const auto& self = *static_cast<const Self*>(this);
    return ConvertToType(self, self, type, provider);
}
} // namespace Tesmo::System
