#pragma once

#include <Core/System/ArgumentNullException.h>
#include <Core/System/Checks.h>
#include <Core/System/Enum.h>
#include <Core/System/FlagsAttribute.h>
#include <Core/System/NoneFlagsAttribute.h>

namespace Tesmo::System
{
/// A plain enumeration as an object. A is FlagsAttribute where its values are bits that combine, else
/// NoneFlagsAttribute.
template <NamedEnum E, std::derived_from<Attribute> A>
class BoxEnum : public Enum<E>, public A
{
    static constexpr bool IsFlags = std::derived_from<A, FlagsAttribute>;

public:
    using Enum<E>::Enum;

    /// The name, for flags those of the bits with the highest first; the value in decimal where a name is missing.
    String ToString() const override
    {
        return IsFlags ? EnumNameTable::FlagsTextOf(this->Names(), this->ToInt32()) : Enum<E>::ToString();
    }

    bool IsDefined() const override
    {
        return IsFlags ? EnumNameTable::AreFlagsDefined(this->Names(), this->ToInt32()) : Enum<E>::IsDefined();
    }

    /// Reads a name or a decimal number, for flags also names with "," between them.
    /// @param result  unchanged where text is none of them, but for flags set to the parts that have a name
    /// @throws ArgumentNullException  result is null
    static bool TryParse(const String& text, bool ignoreCase, BoxEnum& result)
    {
        NotNull(result);
        int number = result.ToInt32();
        const bool parsed = IsFlags ? EnumNameTable::TryParseFlags(BoxEnum::Names(), text, ignoreCase, number)
                                    : EnumNameTable::TryParse(BoxEnum::Names(), text, ignoreCase, number);
        result = BoxEnum(static_cast<E>(number));
        return parsed;
    }
};
} // namespace Tesmo::System
