#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System
{
/// A file that is no library.
class BadImageFormatException : public SystemException
{
public:
    [[nodiscard]] BadImageFormatException() = default;
    [[nodiscard]] BadImageFormatException(const String& message) : SystemException(message) {}
    [[nodiscard]] BadImageFormatException(const String& file, int line) : SystemException(file, line) {}
    [[nodiscard]] BadImageFormatException(const String& message, const String& file, int line)
        : SystemException(message, file, line)
    {
    }
    [[nodiscard]] BadImageFormatException(const String& message, const Exception& inner, const String& file, int line)
        : SystemException(message, inner, file, line)
    {
    }

protected:
    String DefaultMessage() const override
    {
        return "Format for the executable or library is invalid.";
    }
};
} // namespace Tesmo::System
