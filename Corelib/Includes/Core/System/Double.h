#pragma once

#include <Core/System/FloatWrapper.h>

namespace Tesmo::System
{
class Double;
extern template class PrimitiveWrapper<Double, double>;
extern template class FloatWrapper<Double, double>;

/// Floating number of 64 bits.
class Double : public FloatWrapper<Double, double>
{
public:
    /// 0, or the given number; implicit, so that a plain number passes for an object.
    constexpr Double() : FloatWrapper(0) {}
    constexpr Double(double primitive) : FloatWrapper(primitive) {}
};
} // namespace Tesmo::System
