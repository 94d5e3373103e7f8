#pragma once

#include <Core/System/Checks.h>
#include <Core/System/EnumNameTable.h>
#include <Core/System/IComparable.h>
#include <Core/System/IHashable.h>
#include <Core/System/Object.h>
#include <Core/System/String.h>

#include <compare>

namespace Tesmo::System
{
/// An enumeration as a class: a 32-bit value and a table of names. A class of its own looks like this:
///
///     class FileShare : public EnumDeprecated
///     {
///     public:
///         enum Constant
///         {
///             None = 0,
///             Read = 1,
///         };
///         FileShare(Constant constant = None) : EnumDeprecated(constant) {}
///         explicit FileShare(int number) : EnumDeprecated(number) {}
///         const NameTable& Names() const override;
///     };
///
///     const EnumDeprecated::NameTable& FileShare::Names() const
///     {
///         static constexpr EnumName names[] = {{None, "None"}, {Read, "Read"}};
///         static const NameTable table = EnumNameTable::Build(names);
///         return table;
///     }
class EnumDeprecated : public Object, public IComparable, public IHashable
{
public:
    using NameTable = EnumNameTable::Names;

    /// True for an object of the same class with the same value.
    bool Equals(const Object& other) const override;

    /// The name, or the value in decimal.
    String ToString() const override;

    /// The names by their values, shared by all objects of the class.
    virtual const NameTable& Names() const = 0;

    /// True where the value has a name.
    virtual bool IsDefined() const;

    /// Reads a name or a decimal number. False, and no change of result, for other text and for null.
    /// @param result  an object of this class
    /// @throws ArgumentNullException  result is null
    virtual bool TryParse(const String& text, bool ignoreCase, EnumDeprecated& result) const;

    /// By value; 1 for null and for another class.
    int CompareTo(const IComparable& other) const override;
    int GetHashCode() const override; ///< the value

    /// The number, which need not have a name.
    int Value() const
    {
        return value;
    }

    /// By value; false for null. The plain constants of a class compare as their numbers.
    bool operator==(const EnumDeprecated& other) const
    {
        return !IsNull(other) && value == other.value;
    }
    bool operator==(int other) const
    {
        return value == other;
    }
    std::strong_ordering operator<=>(const EnumDeprecated& other) const
    {
        return value <=> NotNull(other).value;
    }
    std::strong_ordering operator<=>(int other) const
    {
        return value <=> other;
    }

protected:
    explicit EnumDeprecated(int number) : value(number) {}

    /// Gives value to result, which any enumeration may be asked to fill.
    static void Assign(EnumDeprecated& result, int value);

private:
    int value;
};
} // namespace Tesmo::System
