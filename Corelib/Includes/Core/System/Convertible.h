#pragma once

#include <Core/System/IConvertible.h>

namespace Tesmo::System
{
/// The conversions of a class, all but its TypeCode, by one private template of that class: `T ConvertTo<T>() const`,
/// which it lets this one call.
template <class Self>
class Convertible : public IConvertible
{
public:
    bool ToBoolean(const IFormatProvider& provider) const override;
    std::uint8_t ToByte(const IFormatProvider& provider) const override;
    char32 ToChar(const IFormatProvider& provider) const override;
    DateTime ToDateTime(const IFormatProvider& provider) const override;
    double ToDouble(const IFormatProvider& provider) const override;
    std::int16_t ToInt16(const IFormatProvider& provider) const override;
    std::int32_t ToInt32(const IFormatProvider& provider) const override;
    std::int64_t ToInt64(const IFormatProvider& provider) const override;
    std::uint16_t ToUInt16(const IFormatProvider& provider) const override;
    std::uint32_t ToUInt32(const IFormatProvider& provider) const override;
    std::uint64_t ToUInt64(const IFormatProvider& provider) const override;
    std::int8_t ToSByte(const IFormatProvider& provider) const override;
    float ToSingle(const IFormatProvider& provider) const override;
    /// @throws ArgumentNullException  type is null
    /// @throws InvalidCastException   type is no class that values convert to
    Up<Object> ToType(const Type& type, const IFormatProvider& provider) const override;
};
} // namespace Tesmo::System
