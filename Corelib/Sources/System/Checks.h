#pragma once

#include <Core/System/ArgumentNullException.h>
#include <Core/System/ArgumentOutOfRangeException.h>
#include <Core/System/Null.h>

namespace Tesmo::System
{
/// @throws ArgumentNullException  argument is null
template <class T>
const T& NotNull(const T& argument)
{
    if (IsNull(argument))
    {
        throw ArgumentNullException(ThrowSite);
    }
    return argument;
}

/// @throws ArgumentOutOfRangeException  argument is negative
inline int NotNegative(int argument)
{
    if (argument < 0)
    {
        throw ArgumentOutOfRangeException(ThrowSite);
    }
    return argument;
}

/// @throws ArgumentOutOfRangeException  count elements from startIndex on do not lie within length
inline void CheckRange(int startIndex, int count, int length)
{
    if (startIndex < 0 || startIndex > length || count < 0 || count > length - startIndex)
    {
        throw ArgumentOutOfRangeException(ThrowSite);
    }
}

/// The number of elements from startIndex to the end.
/// @throws ArgumentOutOfRangeException  startIndex does not lie within length
inline int CountFrom(int startIndex, int length)
{
    CheckRange(startIndex, 0, length);
    return length - startIndex;
}
} // namespace Tesmo::System
