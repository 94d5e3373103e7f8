#pragma once

#include <Core/System/Convertible.h>
#include <Core/System/FormatProvider.h>
#include <Core/System/IComparable.h>
#include <Core/System/IFormattable.h>
#include <Core/System/String.h>
#include <Core/System/ValueType.h>

#include <cstdint>

namespace Tesmo::System
{
/// What the wrappers around one primitive have in common. W is the wrapper, P its primitive.
/// A conversion to another primitive gives OverflowException where the value does not fit; fractions are cut off.
template <class W, class P>
class PrimitiveWrapper : public ValueType,
                         public IComparable,
                         public Convertible<PrimitiveWrapper<W, P>>,
                         public IFormattable
{
public:
    using Primitive = P;

    /// Implicit, so that an object passes for its plain value.
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

protected:
    constexpr explicit PrimitiveWrapper(P primitive) : value(primitive) {}

private:
    friend class Convertible<PrimitiveWrapper>;
    template <class T>
    T ConvertTo() const;

    P value;
};
} // namespace Tesmo::System
