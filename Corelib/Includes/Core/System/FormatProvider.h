#pragma once

#include <Core/System/ICustomFormatter.h>
#include <Core/System/IFormatProvider.h>
#include <Core/System/Object.h>

namespace Tesmo::System
{
/// The provider of the overloads that have none: its one instance is passed on where a signature asks for a provider.
class FormatProvider : public Object, public IFormatProvider, public ICustomFormatter
{
public:
    /// Without state, so any number of threads may use it at once, also before main.
    static const FormatProvider& Default()
    {
        return instance;
    }

    /// The text of argument by format; empty for null.
    String Format(const String& format, const Object& argument, const IFormatProvider& provider) const override;

private:
    FormatProvider() = default;

    static const FormatProvider instance;
};
} // namespace Tesmo::System
