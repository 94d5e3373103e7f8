#include <Core/System/SafeMath.h>

#include <Core/System/OverflowException.h>
#include <Core/System/ThrowSite.h>

#include <limits>

namespace Tesmo::System
{
namespace
{
constexpr std::uint64_t Largest = std::numeric_limits<std::uint64_t>::max();
}

std::uint64_t SafeMath::Add(std::uint64_t left, std::uint64_t right)
{
    std::uint64_t sum = 0;
    if (!TryAdd(left, right, sum))
    {
        throw OverflowException(ThrowSite);
    }
    return sum;
}

std::uint64_t SafeMath::Multiply(std::uint64_t left, std::uint64_t right)
{
    std::uint64_t product = 0;
    if (!TryMultiply(left, right, product))
    {
        throw OverflowException(ThrowSite);
    }
    return product;
}

bool SafeMath::TryAdd(std::uint64_t left, std::uint64_t right, std::uint64_t& sum)
{
    if (right > Largest - left)
    {
        return false;
    }
    sum = left + right;
    return true;
}

bool SafeMath::TryMultiply(std::uint64_t left, std::uint64_t right, std::uint64_t& product)
{
    if (right != 0 && left > Largest / right)
    {
        return false;
    }
    product = left * right;
    return true;
}
} // namespace Tesmo::System
