#pragma once

#include <Core/System/IntegerWrapper.h>

namespace Tesmo::System
{
class Int32;
extern template class PrimitiveWrapper<Int32, std::int32_t>;
extern template class IntegerWrapper<Int32, std::int32_t>;

/// Signed 32-bit integer.
class Int32 : public IntegerWrapper<Int32, std::int32_t>
{
public:
    /// 0, or the given number; implicit, so that a plain number passes for an object.
    constexpr Int32() : IntegerWrapper(0) {}
    constexpr Int32(std::int32_t primitive) : IntegerWrapper(primitive) {}
};
} // namespace Tesmo::System
