#pragma once

#include <Core/System/Exception.h>

namespace Tesmo::System
{
/// Root of the library's own failures.
class SystemException : public Exception
{
public:
    [[nodiscard]] SystemException() = default;
    [[nodiscard]] SystemException(const String& message) : Exception(message) {}
    [[nodiscard]] SystemException(const String& file, int line) : Exception(file, line) {}
    [[nodiscard]] SystemException(const String& message, const String& file, int line) : Exception(message, file, line)
    {
    }
    [[nodiscard]] SystemException(const String& message, const Exception& inner, const String& file, int line)
        : Exception(message, inner, file, line)
    {
    }

protected:
    String DefaultMessage() const override
    {
        return "System error.";
    }
};
} // namespace Tesmo::System
