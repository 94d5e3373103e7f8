#pragma once

#include <Core/System/CallSite.h>
#include <Core/System/Null.h>

#include <type_traits>

/// Checks of arguments, for the head of an operation. What they throw names the place of their call.
namespace Tesmo::System
{
namespace Detail
{
/// Out of line, so that a check costs its caller only a comparison.
[[noreturn, gnu::cold]] void ThrowArgumentNull(CallSite site);
[[noreturn, gnu::cold]] void ThrowArgumentOutOfRange(CallSite site);

template <class P>
concept Pointer = std::is_pointer_v<P> || std::is_member_pointer_v<P>;
} // namespace Detail

/// @throws ArgumentNullException  argument is the null reference
template <class T>
requires(!Detail::Pointer<T>) const T& NotNull(const T& argument, CallSite site = CallSite::Here())
{
    if (IsNull(argument))
    {
        Detail::ThrowArgumentNull(site);
    }
    return argument;
}

/// @throws ArgumentNullException  argument is a null pointer
template <Detail::Pointer P>
P NotNull(P argument, CallSite site = CallSite::Here())
{
    if (argument == nullptr)
    {
        Detail::ThrowArgumentNull(site);
    }
    return argument;
}

/// For what can be empty: an owner, a link, a delegate.
/// @throws ArgumentNullException  argument is the null reference, or empty
template <class T>
const T& NotEmpty(const T& argument, CallSite site = CallSite::Here())
{
    if (NotNull(argument, site) == null)
    {
        Detail::ThrowArgumentNull(site);
    }
    return argument;
}

/// @throws ArgumentOutOfRangeException  argument is negative
inline int NotNegative(int argument, CallSite site = CallSite::Here())
{
    if (argument < 0)
    {
        Detail::ThrowArgumentOutOfRange(site);
    }
    return argument;
}

/// @throws ArgumentOutOfRangeException  index is not in 0 to count - 1
inline int CheckIndex(int index, int count, CallSite site = CallSite::Here())
{
    if (index < 0 || index >= count)
    {
        Detail::ThrowArgumentOutOfRange(site);
    }
    return index;
}

/// @throws ArgumentOutOfRangeException  count elements from startIndex on do not lie within length
inline void CheckRange(int startIndex, int count, int length, CallSite site = CallSite::Here())
{
    if (startIndex < 0 || startIndex > length || count < 0 || count > length - startIndex)
    {
        Detail::ThrowArgumentOutOfRange(site);
    }
}

/// The number of elements from startIndex to the end.
/// @throws ArgumentOutOfRangeException  startIndex does not lie within length
inline int CountFrom(int startIndex, int length, CallSite site = CallSite::Here())
{
    CheckRange(startIndex, 0, length, site);
    return length - startIndex;
}
} // namespace Tesmo::System
