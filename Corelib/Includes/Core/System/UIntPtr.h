#pragma once

#include <Core/System/IComparable.h>
#include <Core/System/IFormattable.h>
#include <Core/System/Object.h>

#include <cstdint>

namespace Tesmo::System
{
/// A unsigned number as wide as a pointer: an address or a native handle.
class UIntPtr : public Object, public IComparable, public IFormattable
{
public:
    static const UIntPtr Zero;

    constexpr UIntPtr() = default;
    constexpr explicit UIntPtr(std::uintptr_t number) : value(number) {}

    constexpr std::uintptr_t Value() const
    {
        return value;
    }

    /// False for null and for another class.
    bool Equals(const Object& other) const override;
    bool operator==(const UIntPtr& other) const
    {
        return !IsNull(other) && value == other.value;
    }
    /// By value; 1 for null and for another class.
    int CompareTo(const IComparable& other) const override;

    String ToString() const override; ///< decimal
    /// The formats of the integers of this width.
    String ToString(const String& format, const IFormatProvider& provider) const override;

private:
    std::uintptr_t value = 0;
};
} // namespace Tesmo::System
