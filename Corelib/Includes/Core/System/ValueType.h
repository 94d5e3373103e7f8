#pragma once

#include <Core/System/IHashable.h>
#include <Core/System/Object.h>
#include <Core/System/String.h>

namespace Tesmo::System
{
/// Base of the wrappers around one primitive value. They live on the stack; their constructors do not allocate.
class ValueType : public Object, public IHashable
{
public:
    /// False for null and for what is no ValueType; otherwise the numeric comparison below.
    bool Equals(const Object& other) const override;

    String ToString() const override = 0;

    /// Compares two numbers of possibly different wrappers by value, signs and fractions respected: Int32 -1 differs from
    /// UInt32 4294967295, Int32 1 from Double 1.5. NaN equals NaN alone. False where either is not convertible.
    virtual bool Equals(const ValueType& other) const;

    /// True in the signed wrappers.
    virtual bool IsSigned() const;
};
} // namespace Tesmo::System
