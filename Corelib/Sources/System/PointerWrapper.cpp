#include <Core/System/PointerWrapper.h>

#include <Core/System/IntPtr.h>
#include <Core/System/NumericalFormat.h>
#include <Core/System/UIntPtr.h>

#include "NumberCast.h"

#include <type_traits>

namespace Tesmo::System
{
namespace
{
template <class P>
using Widest = std::conditional_t<std::is_signed_v<P>, std::int64_t, std::uint64_t>;
}

template <class W, class P>
bool PointerWrapper<W, P>::Equals(const Object& other) const
{
    const W* const same = IsNull(other) ? nullptr : dynamic_cast<const W*>(&other);
    return same != nullptr && P(*same) == value;
}

template <class W, class P>
int PointerWrapper<W, P>::CompareTo(const IComparable& other) const
{
    const W* const same = IsNull(other) ? nullptr : dynamic_cast<const W*>(&other);
    return same == nullptr || value > P(*same) ? 1 : value < P(*same) ? -1 : 0;
}

template <class W, class P>
int PointerWrapper<W, P>::GetHashCode() const
{
    const auto image = static_cast<std::uint64_t>(value);
    return static_cast<int>(static_cast<std::uint32_t>(image) ^ static_cast<std::uint32_t>(image >> 32));
}

template <class W, class P>
String PointerWrapper<W, P>::ToString() const
{
    return ToString("d");
}

template <class W, class P>
String PointerWrapper<W, P>::ToString(const String& format) const
{
    return NumericalFormat::ToString(static_cast<Widest<P>>(value), static_cast<int>(sizeof(P) * 8), format);
}

template <class W, class P>
String PointerWrapper<W, P>::ToString(const String& format, const IFormatProvider&) const
{
    return ToString(format);
}

std::int32_t IntPtr::ToInt32() const
{
    return NumberCast<std::int32_t>(std::intptr_t(*this));
}

std::int64_t IntPtr::ToInt64() const
{
    return std::intptr_t(*this);
}

std::uint32_t UIntPtr::ToUInt32() const
{
    return NumberCast<std::uint32_t>(std::uintptr_t(*this));
}

std::uint64_t UIntPtr::ToUInt64() const
{
    return std::uintptr_t(*this);
}

template class PointerWrapper<IntPtr, std::intptr_t>;
template class PointerWrapper<UIntPtr, std::uintptr_t>;
} // namespace Tesmo::System
