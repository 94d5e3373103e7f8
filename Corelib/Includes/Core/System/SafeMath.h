#pragma once

#include <cstdint>

namespace Tesmo::System
{
/// Unsigned 64-bit arithmetic that reports an overflow.
class SafeMath
{
public:
    SafeMath() = delete;

    /// @throws OverflowException  the sum does not fit 64 bits
    static std::uint64_t Add(std::uint64_t left, std::uint64_t right);

    /// @throws OverflowException  the product does not fit 64 bits
    static std::uint64_t Multiply(std::uint64_t left, std::uint64_t right);

    /// False, and no change of the result, where the forms above throw.
    static bool TryAdd(std::uint64_t left, std::uint64_t right, std::uint64_t& sum);
    static bool TryMultiply(std::uint64_t left, std::uint64_t right, std::uint64_t& product);
};
} // namespace Tesmo::System
