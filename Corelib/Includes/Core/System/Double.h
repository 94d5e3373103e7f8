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
    constexpr Double() : FloatWrapper(0) {}
    constexpr Double(double primitive) : FloatWrapper(primitive) {}
};
} // namespace Tesmo::System
