#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System
{
/// No memory, or no slot, for a new object.
class OutOfMemoryException : public SystemException
{
public:
    [[nodiscard]] OutOfMemoryException() = default;
    [[nodiscard]] OutOfMemoryException(const String& message) : SystemException(message) {}
    [[nodiscard]] OutOfMemoryException(const String& file, int line) : SystemException(file, line) {}
    [[nodiscard]] OutOfMemoryException(const String& message, const String& file, int line)
        : SystemException(message, file, line)
    {
    }
    [[nodiscard]] OutOfMemoryException(const String& message, const Exception& inner, const String& file, int line)
        : SystemException(message, inner, file, line)
    {
    }

protected:
    String DefaultMessage() const override
    {
        return "Insufficient memory to continue the execution of the program.";
    }
};
} // namespace Tesmo::System
