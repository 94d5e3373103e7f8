#pragma once

#include <Core/System/Exception.h>

namespace Tesmo::System
{
/// A failure of the application's own kind.
class ApplicationException : public Exception
{
public:
    [[nodiscard]] ApplicationException() = default;
    [[nodiscard]] ApplicationException(const String& message) : Exception(message) {}
    [[nodiscard]] ApplicationException(const String& file, int line) : Exception(file, line) {}
    [[nodiscard]] ApplicationException(const String& message, const String& file, int line)
        : Exception(message, file, line)
    {
    }
    [[nodiscard]] ApplicationException(const String& message, const Exception& inner, const String& file, int line)
        : Exception(message, inner, file, line)
    {
    }

protected:
    String DefaultMessage() const override
    {
        return "Error in the application.";
    }
};
} // namespace Tesmo::System
