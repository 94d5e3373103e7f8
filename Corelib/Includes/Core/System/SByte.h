#pragma once

#include <Core/System/IntegerWrapper.h>

namespace Tesmo::System
{
class SByte;
extern template class PrimitiveWrapper<SByte, std::int8_t>;
extern template class IntegerWrapper<SByte, std::int8_t>;

/// Signed 8-bit integer.
class SByte : public IntegerWrapper<SByte, std::int8_t>
{
public:
    /// 0, or the given number; implicit, so that a plain number passes for an object.
    constexpr SByte() : IntegerWrapper(0) {}
    constexpr SByte(std::int8_t primitive) : IntegerWrapper(primitive) {}
};
} // namespace Tesmo::System
