#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System
{
/// A bad value for an argument.
class ArgumentException : public SystemException
{
public:
    [[nodiscard]] ArgumentException() = default;
    [[nodiscard]] ArgumentException(const String& message) : SystemException(message) {}
    [[nodiscard]] ArgumentException(const String& file, int line) : SystemException(file, line) {}
    [[nodiscard]] ArgumentException(const String& message, const String& file, int line)
        : SystemException(message, file, line)
    {
    }
    [[nodiscard]] ArgumentException(const String& message, const Exception& inner, const String& file, int line)
        : SystemException(message, inner, file, line)
    {
    }

protected:
    String DefaultMessage() const override
    {
        return "Value does not fall within the expected range.";
    }
};
} // namespace Tesmo::System
