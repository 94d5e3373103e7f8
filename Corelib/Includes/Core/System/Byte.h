#pragma once

#include <Core/System/IntegerWrapper.h>

namespace Tesmo::System
{
class Byte;
extern template class PrimitiveWrapper<Byte, std::uint8_t>;
extern template class IntegerWrapper<Byte, std::uint8_t>;

/// Unsigned 8-bit integer.
class Byte : public IntegerWrapper<Byte, std::uint8_t>
{
public:
    /// 0, or the given number; implicit, so that a plain number passes for an object.
    constexpr Byte() : IntegerWrapper(0) {}
    constexpr Byte(std::uint8_t primitive) : IntegerWrapper(primitive) {}
};
} // namespace Tesmo::System
