#include "ConvertToType.h"

#include <Core/System/ArgumentNullException.h>
#include <Core/System/Boolean.h>
#include <Core/System/Byte.h>
#include <Core/System/Char.h>
#include <Core/System/Checks.h>
#include <Core/System/DateTime.h>
#include <Core/System/Double.h>
#include <Core/System/Int16.h>
#include <Core/System/Int32.h>
#include <Core/System/Int64.h>
#include <Core/System/InvalidCastException.h>
#include <Core/System/SByte.h>
#include <Core/System/Single.h>
#include <Core/System/String.h>
#include <Core/System/ThrowSite.h>
#include <Core/System/UInt16.h>
#include <Core/System/UInt32.h>
#include <Core/System/UInt64.h>

namespace Tesmo::System
{
namespace
{
using Maker = Up<Object> (*)(const IConvertible& value, const IFormatProvider& provider);

struct Target
{
    const std::type_info& info;
    Maker make;
};

template <class W, auto Slot>
Up<Object> Make(const IConvertible& value, const IFormatProvider& provider)
{
    return Up<Object>(new W((value.*Slot)(provider)));
}

const Target targets[] = {
    {typeid(Boolean), Make<Boolean, &IConvertible::ToBoolean>},
    {typeid(Char), Make<Char, &IConvertible::ToChar>},
    {typeid(SByte), Make<SByte, &IConvertible::ToSByte>},
    {typeid(Byte), Make<Byte, &IConvertible::ToByte>},
    {typeid(Int16), Make<Int16, &IConvertible::ToInt16>},
    {typeid(UInt16), Make<UInt16, &IConvertible::ToUInt16>},
    {typeid(Int32), Make<Int32, &IConvertible::ToInt32>},
    {typeid(UInt32), Make<UInt32, &IConvertible::ToUInt32>},
    {typeid(Int64), Make<Int64, &IConvertible::ToInt64>},
    {typeid(UInt64), Make<UInt64, &IConvertible::ToUInt64>},
    {typeid(Single), Make<Single, &IConvertible::ToSingle>},
    {typeid(Double), Make<Double, &IConvertible::ToDouble>},
    {typeid(DateTime), Make<DateTime, &IConvertible::ToDateTime>},
};
} // namespace

Up<Object> ConvertToType(const IConvertible& value, const Object& object, const Type& type,
                         const IFormatProvider& provider)
{
    NotNull(type);
    if (Type(typeid(String)).Equals(type))
    {
        return Up<Object>(new String(object.ToString()));
    }
    for (const Target& target : targets)
    {
        if (Type(target.info).Equals(type))
        {
            return target.make(value, provider);
        }
    }
    throw InvalidCastException(ThrowSite);
}
} // namespace Tesmo::System
