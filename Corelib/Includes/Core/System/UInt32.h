#pragma once

#include <Core/System/IntegerWrapper.h>

namespace Tesmo::System
{
class UInt32;
extern template class PrimitiveWrapper<UInt32, std::uint32_t>;
extern template class IntegerWrapper<UInt32, std::uint32_t>;

/// Unsigned 32-bit integer.
class UInt32 : public IntegerWrapper<UInt32, std::uint32_t>
{
public:
    /// 0, or the given number; implicit, so that a plain number passes for an object.
    constexpr UInt32() : IntegerWrapper(0) {}
    constexpr UInt32(std::uint32_t primitive) : IntegerWrapper(primitive) {}
};
} // namespace Tesmo::System
