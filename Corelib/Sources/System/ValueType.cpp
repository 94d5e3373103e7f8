#include <Core/System/ValueType.h>

#include <Core/System/FormatProvider.h>
#include <Core/System/IConvertible.h>

namespace Tesmo::System
{
bool ValueType::Equals(const Object& other) const
{
    if (IsNull(other))
    {
        return false;
    }
    const auto* const value = dynamic_cast<const ValueType*>(&other);
    return value != nullptr && Equals(*value);
}

bool ValueType::Equals(const ValueType& other) const
{
    if (IsNull(other))
    {
        return false;
    }
    const auto* const left = dynamic_cast<const IConvertible*>(this);
    const auto* const right = dynamic_cast<const IConvertible*>(&other);
    if (left == nullptr || right == nullptr)
    {
        return false;
    }
    // The 64-bit pattern of each number; a negative one has no equal among the unsigned.
    const auto pattern = [](const IConvertible& number, bool isSigned)
    {
        return isSigned ? static_cast<std::uint64_t>(number.ToInt64(FormatProvider::Default()))
                        : number.ToUInt64(FormatProvider::Default());
    };
    const std::uint64_t leftPattern = pattern(*left, IsSigned());
    const std::uint64_t rightPattern = pattern(*right, other.IsSigned());
    const std::uint64_t signBit = std::uint64_t{1} << 63;
    return leftPattern == rightPattern && (IsSigned() == other.IsSigned() || (leftPattern & signBit) == 0);
}

bool ValueType::IsSigned() const
{
    return false;
}
} // namespace Tesmo::System
