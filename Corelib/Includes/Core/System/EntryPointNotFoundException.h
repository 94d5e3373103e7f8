#pragma once

#include <Core/System/TypeLoadException.h>

namespace Tesmo::System
{
/// A library without the function asked for.
class EntryPointNotFoundException : public TypeLoadException
{
public:
    [[nodiscard]] EntryPointNotFoundException() = default;
    [[nodiscard]] EntryPointNotFoundException(const String& message) : TypeLoadException(message) {}
    [[nodiscard]] EntryPointNotFoundException(const String& file, int line) : TypeLoadException(file, line) {}
    [[nodiscard]] EntryPointNotFoundException(const String& message, const String& file, int line)
        : TypeLoadException(message, file, line)
    {
    }
    [[nodiscard]] EntryPointNotFoundException(const String& message, const Exception& inner, const String& file,
                                              int line)
        : TypeLoadException(message, inner, file, line)
    {
    }

protected:
    String DefaultMessage() const override
    {
        return "Entry point was not found.";
    }
};
} // namespace Tesmo::System
