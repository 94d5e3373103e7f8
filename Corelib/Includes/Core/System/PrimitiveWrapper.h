#pragma once

#include <Core/System/FormatProvider.h>
#include <Core/System/IComparable.h>
#include <Core/System/IConvertible.h>
#include <Core/System/IFormattable.h>
#include <Core/System/String.h>
#include <Core/System/ValueType.h>

#include <cstdint>

namespace Tesmo::System
{
/// What the wrappers around one primitive have in common. W is the wrapper, P its primitive.
/// A conversion to another primitive gives OverflowException where the value does not fit; fractions are cut off.
template <class W, class P>
class PrimitiveWrapper : public ValueType, public IComparable, public IConvertible, public IFormattable
{
public:
    using Primitive = P;

    constexpr operator P() const
    {
        return value;
    }

    using ValueType::Equals;

    /// The text by the class's default format.
    String ToString() const override;
    /// @throws ArgumentNullException  format is null
    /// @throws FormatException        format is none for this class
    String ToString(const String& format) const;
    String ToString(const String& format, const IFormatProvider& provider) const override;

    bool IsSigned() const override;
    int GetHashCode() const override;
    /// By value; 1 for null and for another class.
    int CompareTo(const IComparable& other) const override;

    TypeCode GetTypeCode() const override;
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
    Up<Object> ToType(const Type& type, const IFormatProvider& provider) const override;

protected:
    constexpr explicit PrimitiveWrapper(P primitive) : value(primitive) {}

private:
    P value;
};
} // namespace Tesmo::System
