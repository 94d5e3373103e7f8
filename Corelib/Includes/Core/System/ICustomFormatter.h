#pragma once

#include <Core/System/Virtual.h>

namespace Tesmo::System
{
class IFormatProvider;
class Object;
class String;

/// A formatter that a provider could hand out.
class ICustomFormatter : public Virtual
{
public:
    /// The text of argument by format.
    virtual String Format(const String& format, const Object& argument, const IFormatProvider& provider) const = 0;
};
} // namespace Tesmo::System
