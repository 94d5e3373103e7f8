#include <Core/System/ValueType.h>

#include <Core/System/FormatProvider.h>
#include <Core/System/IConvertible.h>
#include <Core/System/TypeCode.h>

#include <cmath>
#include <cstdint>
#include <optional>

namespace Tesmo::System
{
namespace
{
/// A whole number of either sign, up to 64 bits.
struct Whole
{
    bool negative;
    std::uint64_t magnitude;

    bool operator==(const Whole&) const = default;
};

bool IsFloating(const IConvertible& number)
{
    return number.GetTypeCode() == TypeCode::Single || number.GetTypeCode() == TypeCode::Double;
}

/// Empty for a floating number with a fraction or beyond 64 bits, and for NaN (decision 14).
std::optional<Whole> WholeOf(const IConvertible& number, bool isSigned)
{
    if (IsFloating(number))
    {
        const double value = number.ToDouble(FormatProvider::Default());
        const double size = std::abs(value);
        const bool isWhole = std::trunc(size) == size && size < 18446744073709551616.0; // 2^64
        return isWhole ? std::optional<Whole>({value < 0, static_cast<std::uint64_t>(size)}) : std::nullopt;
    }
    if (!isSigned)
    {
        return Whole{false, number.ToUInt64(FormatProvider::Default())};
    }
    const std::int64_t value = number.ToInt64(FormatProvider::Default());
    const auto pattern = static_cast<std::uint64_t>(value);
    return Whole{value < 0, value < 0 ? 0 - pattern : pattern};
}
} // namespace

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
    const auto* const left = IsNull(other) ? nullptr : dynamic_cast<const IConvertible*>(this);
    const auto* const right = IsNull(other) ? nullptr : dynamic_cast<const IConvertible*>(&other);
    if (left == nullptr || right == nullptr)
    {
        return false;
    }
    if (IsFloating(*left) && IsFloating(*right))
    {
        const double leftNumber = left->ToDouble(FormatProvider::Default());
        const double rightNumber = right->ToDouble(FormatProvider::Default());
        return leftNumber == rightNumber || (std::isnan(leftNumber) && std::isnan(rightNumber));
    }
    const std::optional<Whole> leftNumber = WholeOf(*left, IsSigned());
    return leftNumber && leftNumber == WholeOf(*right, other.IsSigned());
}

bool ValueType::IsSigned() const
{
    return false;
}
} // namespace Tesmo::System
