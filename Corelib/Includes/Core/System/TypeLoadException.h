#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System
{
/// A type that could not be loaded.
class TypeLoadException : public SystemException
{
public:
    [[nodiscard]] TypeLoadException() = default;
    [[nodiscard]] TypeLoadException(const String& message) : SystemException(message) {}
    [[nodiscard]] TypeLoadException(const String& file, int line) : SystemException(file, line) {}
    [[nodiscard]] TypeLoadException(const String& message, const String& file, int line)
        : SystemException(message, file, line)
    {
    }
    [[nodiscard]] TypeLoadException(const String& message, const Exception& inner, const String& file, int line)
        : SystemException(message, inner, file, line)
    {
    }

protected:
    String DefaultMessage() const override
    {
        return "Failure has occurred while loading a type";
    }
};
} // namespace Tesmo::System
