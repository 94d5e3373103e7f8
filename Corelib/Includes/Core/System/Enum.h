#pragma once

#include <Core/System/EnumNameTable.h>
#include <Core/System/IComparable.h>
#include <Core/System/IEnum.h>
#include <Core/System/IHashable.h>
#include <Core/System/Object.h>

#include <concepts>
#include <type_traits>

namespace Tesmo::System
{
/// A plain enumeration with a name table: beside the enumeration stands
/// `constexpr std::span<const EnumName> EnumNamesOf(E)`, which is found by the argument.
template <class E>
concept NamedEnum = std::is_enum_v<E> && requires(E value)
{
    {
        EnumNamesOf(value)
        } -> std::convertible_to<std::span<const EnumName>>;
};

/// A plain enumeration as an object.
template <NamedEnum E>
class Enum : public Object, public IComparable, public IHashable, public IEnum
{
public:
    /// Takes every number that the type can hold, also one without a name.
    Enum(E constant = E()) : value(constant) {}

    /// The plain constant; implicit too, so that an object passes for it.
    E Value() const
    {
        return value;
    }
    operator E() const
    {
        return value;
    }
    int ToInt32() const override
    {
        return static_cast<int>(value);
    }

    /// By value; false for null.
    bool operator==(const Enum& other) const
    {
        return !IsNull(other) && value == other.value;
    }
    bool operator==(E other) const
    {
        return value == other;
    }

    /// True for an object of the same class with the same value.
    bool Equals(const Object& other) const override
    {
        if (IsNull(other))
        {
            return false;
        }
        const auto* const same = dynamic_cast<const Enum*>(&other);
        return same != nullptr && same->value == value;
    }

    /// The name, or the value in decimal.
    String ToString() const override
    {
        return EnumNameTable::TextOf(Names(), ToInt32());
    }

    /// By value; 1 for null and for another class.
    int CompareTo(const IComparable& other) const override
    {
        const Enum* const same = IsNull(other) ? nullptr : dynamic_cast<const Enum*>(&other);
        return same == nullptr || value > same->value ? 1 : value < same->value ? -1 : 0;
    }

    int GetHashCode() const override
    {
        return ToInt32();
    }

    /// The names by their values.
    static const EnumNameTable::Names& Names()
    {
        static const EnumNameTable::Names table = EnumNameTable::Build(EnumNamesOf(E()));
        return table;
    }

    /// True where the value has a name.
    virtual bool IsDefined() const
    {
        return EnumNameTable::IsDefined(Names(), ToInt32());
    }

private:
    E value;
};
} // namespace Tesmo::System
