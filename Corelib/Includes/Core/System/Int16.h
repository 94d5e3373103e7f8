#pragma once

#include <Core/System/IntegerWrapper.h>

namespace Tesmo::System
{
class Int16;
extern template class PrimitiveWrapper<Int16, std::int16_t>;
extern template class IntegerWrapper<Int16, std::int16_t>;

/// Signed 16-bit integer.
class Int16 : public IntegerWrapper<Int16, std::int16_t>
{
public:
    /// 0, or the given number; implicit, so that a plain number passes for an object.
    constexpr Int16() : IntegerWrapper(0) {}
    constexpr Int16(std::int16_t primitive) : IntegerWrapper(primitive) {}
};
} // namespace Tesmo::System
