#pragma once

#include <Core/System/IConvertible.h>
#include <Core/System/Object.h>
#include <Core/System/Type.h>
#include <Core/System/Up.h>

namespace Tesmo::System
{
/// A new wrapper of the class type with the value of an object.
/// @param value   the object's conversions
/// @param object  the same object; its ToString serves the class String
/// @throws ArgumentNullException  type is null
/// @throws InvalidCastException   type is no class that values convert to
/// @throws OverflowException      the value does not fit
Up<Object> ConvertToType(const IConvertible& value, const Object& object, const Type& type,
                         const IFormatProvider& provider);
} // namespace Tesmo::System
