#pragma once

#include <Core/System/InvalidOperationException.h>

namespace Tesmo::System
{
/// A call on an object that was closed.
class ObjectClosedException : public InvalidOperationException
{
public:
    [[nodiscard]] ObjectClosedException() = default;
    [[nodiscard]] ObjectClosedException(const String& message) : InvalidOperationException(message) {}
    [[nodiscard]] ObjectClosedException(const String& file, int line) : InvalidOperationException(file, line) {}
    [[nodiscard]] ObjectClosedException(const String& message, const String& file, int line)
        : InvalidOperationException(message, file, line)
    {
    }
    [[nodiscard]] ObjectClosedException(const String& message, const Exception& inner, const String& file, int line)
        : InvalidOperationException(message, inner, file, line)
    {
    }

protected:
    String DefaultMessage() const override
    {
        return "Cannot access a closed object.";
    }
};
} // namespace Tesmo::System
