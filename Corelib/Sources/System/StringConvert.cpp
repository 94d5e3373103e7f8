#include <Core/System/String.h>

#include <Core/System/ArgumentOutOfRangeException.h>
#include <Core/System/Boolean.h>
#include <Core/System/Byte.h>
#include <Core/System/DateTime.h>
#include <Core/System/Double.h>
#include <Core/System/FormatException.h>
#include <Core/System/Int16.h>
#include <Core/System/Int32.h>
#include <Core/System/Int64.h>
#include <Core/System/SByte.h>
#include <Core/System/Single.h>
#include <Core/System/ThrowSite.h>
#include <Core/System/Type.h>
#include <Core/System/UInt16.h>
#include <Core/System/UInt32.h>
#include <Core/System/UInt64.h>

#include "ConvertTo.h"

#include <array>
#include <string_view>

namespace Tesmo::System
{
namespace
{
/// Reads "dd/mm/yyyy hh:mm:ss", as DateTime prints itself.
DateTime ParseMoment(std::string_view text)
{
    constexpr std::string_view shape = "00/00/0000 00:00:00";
    std::array<int, 6> fields{}; // day, month, year, hour, minute, second
    std::size_t field = 0;
    bool matches = text.size() == shape.size();
    for (std::size_t i = 0; matches && i < shape.size(); ++i)
    {
        const bool isDigit = text[i] >= '0' && text[i] <= '9';
        matches = shape[i] == '0' ? isDigit : text[i] == shape[i];
        fields[field] = isDigit ? fields[field] * 10 + (text[i] - '0') : fields[field];
        field += isDigit ? 0 : 1;
    }
    try
    {
        if (matches)
        {
            return DateTime(fields[2], fields[1], fields[0], fields[3], fields[4], fields[5]);
        }
    }
    catch (const ArgumentOutOfRangeException&) // no such day or hour
    {
    }
    throw FormatException(ThrowSite);
}

/// Tells which class reads a primitive; only decltype uses it.
struct Reader
{
    static Boolean Of(bool);
    static SByte Of(std::int8_t);
    static Byte Of(std::uint8_t);
    static Int16 Of(std::int16_t);
    static UInt16 Of(std::uint16_t);
    static Int32 Of(std::int32_t);
    static UInt32 Of(std::uint32_t);
    static Int64 Of(std::int64_t);
    static UInt64 Of(std::uint64_t);
    static Single Of(float);
    static Double Of(double);
};
} // namespace

TypeCode String::GetTypeCode() const
{
    return TypeCode::String;
}

template <class T>
T String::ConvertTo() const
{
    if constexpr (std::is_same_v<T, char32>)
    {
        if (Length() != 1)
        {
            throw FormatException(ThrowSite);
        }
        return *value.begin();
    }
    else if constexpr (std::is_same_v<T, DateTime>)
    {
        return ParseMoment(Utf8());
    }
    else
    {
        return decltype(Reader::Of(T()))::Parse(*this);
    }
}

template class Convertible<String>;
} // namespace Tesmo::System
