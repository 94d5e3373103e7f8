#pragma once

#include <Core/System/Array.h>
#include <Core/System/Char32.h>

#include <algorithm>

namespace Tesmo::System
{
/// Predicates over one code point, for the loops of String.
inline auto EqualTo(char32 value)
{
    return [value](char32 c) { return c == value; };
}

/// values must outlive the predicate.
inline auto OneOf(const Array<char32>& values)
{
    return [&values](char32 c) { return std::find(values.begin(), values.end(), c) != values.end(); };
}
} // namespace Tesmo::System
