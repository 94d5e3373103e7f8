#pragma once

#include <Core/System/Char32.h>
#include <Core/System/Object.h>
#include <Core/System/TypeCode.h>
#include <Core/System/Up.h>
#include <Core/System/Virtual.h>
#include <cstdint>

namespace Tesmo::System
{
class DateTime;
class IFormatProvider;

/// Conversion of a value to each primitive class.
/// @throws OverflowException  the value does not fit the target
class IConvertible : public Virtual
{
public:
    /// The class of the value, and the value as each primitive: a number counts as true unless it is 0, true counts as
    /// 1, a moment as its ticks, a character as its code point; fractions are cut off. The provider is not looked at.
    /// @throws FormatException  the value is a text that does not read as the target
    virtual TypeCode GetTypeCode() const = 0;
    virtual bool ToBoolean(const IFormatProvider& provider) const = 0;
    virtual std::uint8_t ToByte(const IFormatProvider& provider) const = 0;
    virtual char32 ToChar(const IFormatProvider& provider) const = 0;
    virtual DateTime ToDateTime(const IFormatProvider& provider) const = 0;
    virtual double ToDouble(const IFormatProvider& provider) const = 0;
    virtual std::int16_t ToInt16(const IFormatProvider& provider) const = 0;
    virtual std::int32_t ToInt32(const IFormatProvider& provider) const = 0;
    virtual std::int64_t ToInt64(const IFormatProvider& provider) const = 0;
    virtual std::uint16_t ToUInt16(const IFormatProvider& provider) const = 0;
    virtual std::uint32_t ToUInt32(const IFormatProvider& provider) const = 0;
    virtual std::uint64_t ToUInt64(const IFormatProvider& provider) const = 0;
    virtual std::int8_t ToSByte(const IFormatProvider& provider) const = 0;
    virtual float ToSingle(const IFormatProvider& provider) const = 0;
    /// A new wrapper object of the given class with this value.
    virtual Up<Object> ToType(const Type& type, const IFormatProvider& provider) const = 0;
};
} // namespace Tesmo::System
