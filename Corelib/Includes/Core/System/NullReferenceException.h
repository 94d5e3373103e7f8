#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System
{
/// A use of an object that is not there.
class NullReferenceException : public SystemException
{
public:
    [[nodiscard]] NullReferenceException() = default;
    [[nodiscard]] NullReferenceException(const String& message) : SystemException(message) {}
    [[nodiscard]] NullReferenceException(const String& file, int line) : SystemException(file, line) {}
    [[nodiscard]] NullReferenceException(const String& message, const String& file, int line)
        : SystemException(message, file, line)
    {
    }
    [[nodiscard]] NullReferenceException(const String& message, const Exception& inner, const String& file, int line)
        : SystemException(message, inner, file, line)
    {
    }

protected:
    String DefaultMessage() const override
    {
        return "Object reference not set to an instance of an object.";
    }
};
} // namespace Tesmo::System
