#pragma once

#include <Core/System/EnumDeprecated.h>

namespace Tesmo::System
{
/// An enumeration whose values are bits that combine.
class FlagsEnum : public EnumDeprecated
{
public:
    /// The names of the bits, the highest first: "WaitSleepJoin, Unstarted". The decimal value where a bit has no name.
    String ToString() const override;

    /// True where the bits are made of named values.
    bool IsDefined() const override;

    /// Reads names with "," between them, blanks around each allowed, or one decimal number. Result is set to 0 first;
    /// where a part has no name it holds the others, and the outcome is false.
    /// @throws ArgumentNullException  result is null
    bool TryParse(const String& text, bool ignoreCase, EnumDeprecated& result) const override;

protected:
    using EnumDeprecated::EnumDeprecated;
};
} // namespace Tesmo::System
