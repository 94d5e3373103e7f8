#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System
{
/// An object of another class than asked for.
class InvalidCastException : public SystemException
{
public:
    [[nodiscard]] InvalidCastException() = default;
    [[nodiscard]] InvalidCastException(const String& message) : SystemException(message) {}
    [[nodiscard]] InvalidCastException(const String& file, int line) : SystemException(file, line) {}
    [[nodiscard]] InvalidCastException(const String& message, const String& file, int line)
        : SystemException(message, file, line)
    {
    }
    [[nodiscard]] InvalidCastException(const String& message, const Exception& inner, const String& file, int line)
        : SystemException(message, inner, file, line)
    {
    }

protected:
    String DefaultMessage() const override
    {
        return "Specified cast is not valid.";
    }
};
} // namespace Tesmo::System
