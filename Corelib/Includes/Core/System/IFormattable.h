#pragma once

#include <Core/System/Virtual.h>

namespace Tesmo::System
{
class IFormatProvider;
class String;

/// Objects whose text depends on a format.
class IFormattable : public Virtual
{
public:
    /// The text by format; an empty format means the class's default.
    virtual String ToString(const String& format, const IFormatProvider& provider) const = 0;
};
} // namespace Tesmo::System
