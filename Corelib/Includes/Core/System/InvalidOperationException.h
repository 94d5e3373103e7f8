#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System
{
/// A call that the object's state does not allow.
class InvalidOperationException : public SystemException
{
public:
    [[nodiscard]] InvalidOperationException() = default;
    [[nodiscard]] InvalidOperationException(const String& message) : SystemException(message) {}
    [[nodiscard]] InvalidOperationException(const String& file, int line) : SystemException(file, line) {}
    [[nodiscard]] InvalidOperationException(const String& message, const String& file, int line)
        : SystemException(message, file, line)
    {
    }
    [[nodiscard]] InvalidOperationException(const String& message, const Exception& inner, const String& file, int line)
        : SystemException(message, inner, file, line)
    {
    }

protected:
    String DefaultMessage() const override
    {
        return "Operation is not valid due to the current state of the object.";
    }
};
} // namespace Tesmo::System
