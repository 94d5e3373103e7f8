#pragma once

#include <Core/System/IntegerWrapper.h>

namespace Tesmo::System
{
class UInt64;
extern template class PrimitiveWrapper<UInt64, std::uint64_t>;
extern template class IntegerWrapper<UInt64, std::uint64_t>;

/// Unsigned 64-bit integer.
class UInt64 : public IntegerWrapper<UInt64, std::uint64_t>
{
public:
    /// 0, or the given number; implicit, so that a plain number passes for an object.
    constexpr UInt64() : IntegerWrapper(0) {}
    constexpr UInt64(std::uint64_t primitive) : IntegerWrapper(primitive) {}
};
} // namespace Tesmo::System
