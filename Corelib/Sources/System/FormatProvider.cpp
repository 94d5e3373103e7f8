#include <Core/System/FormatProvider.h>

#include <Core/System/IFormattable.h>
#include <Core/System/String.h>

namespace Tesmo::System
{
constinit const FormatProvider FormatProvider::instance;

String FormatProvider::Format(const String& format, const Object& argument, const IFormatProvider& provider) const
{
    if (IsNull(argument))
    {
        return String();
    }
    const auto* formattable = dynamic_cast<const IFormattable*>(&argument);
    return formattable != nullptr ? formattable->ToString(format, provider) : argument.ToString();
}
} // namespace Tesmo::System
