#include <Core/System/IntPtr.h>

#include <Core/System/FormatProvider.h>
#include <Core/System/Int32.h>
#include <Core/System/Int64.h>

#include <type_traits>

namespace Tesmo::System
{
namespace
{
using Number = std::conditional_t<sizeof(std::intptr_t) == sizeof(std::int32_t), Int32, Int64>;
} // namespace

const IntPtr IntPtr::Zero;

bool IntPtr::Equals(const Object& other) const
{
    const auto* const number = IsNull(other) ? nullptr : dynamic_cast<const IntPtr*>(&other);
    return number != nullptr && number->value == value;
}

int IntPtr::CompareTo(const IComparable& other) const
{
    const auto* const number = IsNull(other) ? nullptr : dynamic_cast<const IntPtr*>(&other);
    return number == nullptr || value > number->value ? 1 : value < number->value ? -1 : 0;
}

String IntPtr::ToString() const
{
    return ToString("d", FormatProvider::Default());
}

String IntPtr::ToString(const String& format, const IFormatProvider& provider) const
{
    return Number(value).ToString(format, provider);
}
} // namespace Tesmo::System
