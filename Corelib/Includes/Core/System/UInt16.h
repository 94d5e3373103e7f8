#pragma once

#include <Core/System/IntegerWrapper.h>

namespace Tesmo::System
{
class UInt16;
extern template class PrimitiveWrapper<UInt16, std::uint16_t>;
extern template class IntegerWrapper<UInt16, std::uint16_t>;

/// Unsigned 16-bit integer.
class UInt16 : public IntegerWrapper<UInt16, std::uint16_t>
{
public:
    /// 0, or the given number; implicit, so that a plain number passes for an object.
    constexpr UInt16() : IntegerWrapper(0) {}
    constexpr UInt16(std::uint16_t primitive) : IntegerWrapper(primitive) {}
};
} // namespace Tesmo::System
