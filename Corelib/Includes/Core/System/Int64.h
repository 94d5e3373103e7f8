#pragma once

#include <Core/System/IntegerWrapper.h>

namespace Tesmo::System
{
class Int64;
extern template class PrimitiveWrapper<Int64, std::int64_t>;
extern template class IntegerWrapper<Int64, std::int64_t>;

/// Signed 64-bit integer.
class Int64 : public IntegerWrapper<Int64, std::int64_t>
{
public:
    /// 0, or the given number; implicit, so that a plain number passes for an object.
    constexpr Int64() : IntegerWrapper(0) {}
    constexpr Int64(std::int64_t primitive) : IntegerWrapper(primitive) {}
};
} // namespace Tesmo::System
