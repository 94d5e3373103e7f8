#include <Core/System/UIntPtr.h>

#include <Core/System/FormatProvider.h>
#include <Core/System/UInt32.h>
#include <Core/System/UInt64.h>

#include <type_traits>

namespace Tesmo::System
{
namespace
{
using Number = std::conditional_t<sizeof(std::uintptr_t) == sizeof(std::int32_t), UInt32, UInt64>;
} // namespace

const UIntPtr UIntPtr::Zero;

bool UIntPtr::Equals(const Object& other) const
{
    const auto* const number = IsNull(other) ? nullptr : dynamic_cast<const UIntPtr*>(&other);
    return number != nullptr && number->value == value;
}

int UIntPtr::CompareTo(const IComparable& other) const
{
    const auto* const number = IsNull(other) ? nullptr : dynamic_cast<const UIntPtr*>(&other);
    return number == nullptr || value > number->value ? 1 : value < number->value ? -1 : 0;
}

String UIntPtr::ToString() const
{
    return ToString("d", FormatProvider::Default());
}

String UIntPtr::ToString(const String& format, const IFormatProvider& provider) const
{
    return Number(value).ToString(format, provider);
}
} // namespace Tesmo::System
