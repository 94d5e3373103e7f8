#pragma once

namespace Tesmo::System
{
/// Number of each primitive class, as GetTypeCode gives it.
enum class TypeCode
{
    Boolean = 2,
    Char = 3,
    SByte = 4,
    Byte = 5,
    Int16 = 6,
    UInt16 = 7,
    Int32 = 8,
    UInt32 = 9,
    Int64 = 10,
    UInt64 = 11,
    Single = 12,
    Double = 13,
    DateTime = 14,
    String = 15,
};
} // namespace Tesmo::System
