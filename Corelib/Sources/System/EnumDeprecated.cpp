#include <Core/System/EnumDeprecated.h>

#include <Core/System/ArgumentNullException.h>
#include <Core/System/Checks.h>

#include <typeinfo>

namespace Tesmo::System
{
bool EnumDeprecated::Equals(const Object& other) const
{
    if (IsNull(other))
    {
        return false;
    }
    const auto* const same = dynamic_cast<const EnumDeprecated*>(&other);
    return same != nullptr && typeid(*same) == typeid(*this) && same->value == value;
}

String EnumDeprecated::ToString() const
{
    return EnumNameTable::TextOf(Names(), value);
}

bool EnumDeprecated::IsDefined() const
{
    return EnumNameTable::IsDefined(Names(), value);
}

bool EnumDeprecated::TryParse(const String& text, bool ignoreCase, EnumDeprecated& result) const
{
    NotNull(result);
    return EnumNameTable::TryParse(Names(), text, ignoreCase, result.value);
}

int EnumDeprecated::CompareTo(const IComparable& other) const
{
    const EnumDeprecated* const same = IsNull(other) ? nullptr : dynamic_cast<const EnumDeprecated*>(&other);
    if (same == nullptr || typeid(*same) != typeid(*this))
    {
        return 1;
    }
    return value < same->value ? -1 : value > same->value ? 1 : 0;
}

int EnumDeprecated::GetHashCode() const
{
    return value;
}

void EnumDeprecated::Assign(EnumDeprecated& result, int value)
{
    result.value = value;
}
} // namespace Tesmo::System
