#include <Core/System/FlagsEnum.h>

#include <Core/System/ArgumentNullException.h>
#include <Core/System/Checks.h>

namespace Tesmo::System
{
String FlagsEnum::ToString() const
{
    return EnumNameTable::FlagsTextOf(Names(), Value());
}

bool FlagsEnum::IsDefined() const
{
    return EnumNameTable::AreFlagsDefined(Names(), Value());
}

bool FlagsEnum::TryParse(const String& text, bool ignoreCase, EnumDeprecated& result) const
{
    NotNull(result);
    int bits = 0;
    const bool complete = EnumNameTable::TryParseFlags(Names(), text, ignoreCase, bits);
    Assign(result, bits);
    return complete;
}
} // namespace Tesmo::System
