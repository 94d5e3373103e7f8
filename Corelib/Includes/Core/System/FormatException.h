#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System
{
/// Text that does not have the form that is asked for.
class FormatException : public SystemException
{
public:
    [[nodiscard]] FormatException() = default;
    [[nodiscard]] FormatException(const String& message) : SystemException(message) {}
    [[nodiscard]] FormatException(const String& file, int line) : SystemException(file, line) {}
    [[nodiscard]] FormatException(const String& message, const String& file, int line)
        : SystemException(message, file, line)
    {
    }
    [[nodiscard]] FormatException(const String& message, const Exception& inner, const String& file, int line)
        : SystemException(message, inner, file, line)
    {
    }

protected:
    String DefaultMessage() const override
    {
        return "One of identified items is an invalid format.";
    }
};
} // namespace Tesmo::System
