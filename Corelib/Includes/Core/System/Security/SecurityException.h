#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System::Security
{
/// A missing permission.
class SecurityException : public SystemException
{
public:
    [[nodiscard]] SecurityException() = default;
    [[nodiscard]] SecurityException(const String& message) : SystemException(message) {}
    [[nodiscard]] SecurityException(const String& file, int line) : SystemException(file, line) {}
    [[nodiscard]] SecurityException(const String& message, const String& file, int line)
        : SystemException(message, file, line)
    {
    }
    [[nodiscard]] SecurityException(const String& message, const Exception& inner, const String& file, int line)
        : SystemException(message, inner, file, line)
    {
    }

protected:
    String DefaultMessage() const override
    {
        return "Security error detected.";
    }
};
} // namespace Tesmo::System::Security
