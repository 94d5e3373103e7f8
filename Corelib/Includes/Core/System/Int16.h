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
    constexpr Int16() : IntegerWrapper(0) {}
    constexpr Int16(std::int16_t primitive) : IntegerWrapper(primitive) {}
};
} // namespace Tesmo::System
