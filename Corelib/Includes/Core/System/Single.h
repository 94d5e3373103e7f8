#pragma once

#include <Core/System/FloatWrapper.h>

namespace Tesmo::System
{
class Single;
extern template class PrimitiveWrapper<Single, float>;
extern template class FloatWrapper<Single, float>;

/// Floating number of 32 bits.
class Single : public FloatWrapper<Single, float>
{
public:
    /// 0, or the given number; implicit, so that a plain number passes for an object.
    constexpr Single() : FloatWrapper(0) {}
    constexpr Single(float primitive) : FloatWrapper(primitive) {}
};
} // namespace Tesmo::System
