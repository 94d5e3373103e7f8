#pragma once

#include <Core/System/IConvertible.h>
#include <Core/System/String.h>

#include <cstdint>

namespace Tesmo::System
{
/// Conversions between the wrappers, String and DateTime, each by the value's own IConvertible operation.
/// @throws ArgumentNullException  value is null
/// @throws OverflowException      value does not fit
/// @throws FormatException        value is a text of another form
class Convert
{
public:
    Convert() = delete;

    /// As IConvertible tells; fractions are cut off.
    static bool ToBoolean(const IConvertible& value);
    static std::uint8_t ToByte(const IConvertible& value);
    static char32 ToChar(const IConvertible& value);
    static DateTime ToDateTime(const IConvertible& value);
    static double ToDouble(const IConvertible& value);
    static std::int16_t ToInt16(const IConvertible& value);
    static std::int32_t ToInt32(const IConvertible& value);
    static std::int64_t ToInt64(const IConvertible& value);
    static std::int8_t ToSByte(const IConvertible& value);
    static float ToSingle(const IConvertible& value);
    static std::uint16_t ToUInt16(const IConvertible& value);
    static std::uint32_t ToUInt32(const IConvertible& value);
    static std::uint64_t ToUInt64(const IConvertible& value);

    /// The object's text.
    static String ToString(const IConvertible& value);
};
} // namespace Tesmo::System
