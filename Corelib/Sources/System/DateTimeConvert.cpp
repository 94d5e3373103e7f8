#include <Core/System/DateTime.h>
#include <Core/System/Type.h>

#include "ConvertTo.h"
#include "NumberCast.h"

namespace Tesmo::System
{
TypeCode DateTime::GetTypeCode() const
{
    return TypeCode::DateTime;
}

template <class T>
T DateTime::ConvertTo() const
{
    if constexpr (std::is_same_v<T, DateTime>)
    {
        return *this;
    }
    else if constexpr (std::is_same_v<T, char32>)
    {
        return CodePointCast(NumberCast<std::uint32_t>(ticks));
    }
    else
    {
        return NumberCast<T>(ticks);
    }
}

template class Convertible<DateTime>;
} // namespace Tesmo::System
