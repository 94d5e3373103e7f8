#pragma once

#include <Core/System/IComparable.h>
#include <Core/System/IFormattable.h>
#include <Core/System/Object.h>
#include <Core/System/String.h>

#include <compare>
#include <cstdint>

namespace Tesmo::System
{
/// What IntPtr and UIntPtr have in common. W is the wrapper, P the integer of a pointer's size.
template <class W, class P>
class PointerWrapper : public Object, public IComparable, public IFormattable
{
public:
    static constexpr int Size = sizeof(P); ///< bytes

    /// The number. As a pointer it is not checked to point anywhere.
    constexpr operator P() const
    {
        return value;
    }
    constexpr P Value() const
    {
        return value;
    }
    void* ToPointer() const
    {
        return reinterpret_cast<void*>(value);
    }

    /// By value; false for null and for another class.
    bool Equals(const Object& other) const override;
    /// By value; 1 for null and for another class.
    int CompareTo(const IComparable& other) const override;
    int GetHashCode() const;

    String ToString() const override; ///< in decimal
    /// The formats of integers.
    /// @throws ArgumentNullException  format is null
    String ToString(const String& format) const;
    String ToString(const String& format, const IFormatProvider& provider) const override;

protected:
    constexpr explicit PointerWrapper(P number) : value(number) {}

private:
    P value;
};
} // namespace Tesmo::System
