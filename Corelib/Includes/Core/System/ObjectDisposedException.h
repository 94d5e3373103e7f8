#pragma once

#include <Core/System/InvalidOperationException.h>

namespace Tesmo::System
{
/// A call on an object that was disposed of.
class ObjectDisposedException : public InvalidOperationException
{
public:
    [[nodiscard]] ObjectDisposedException() = default;
    [[nodiscard]] ObjectDisposedException(const String& message) : InvalidOperationException(message) {}
    [[nodiscard]] ObjectDisposedException(const String& file, int line) : InvalidOperationException(file, line) {}
    [[nodiscard]] ObjectDisposedException(const String& message, const String& file, int line)
        : InvalidOperationException(message, file, line)
    {
    }
    [[nodiscard]] ObjectDisposedException(const String& message, const Exception& inner, const String& file, int line)
        : InvalidOperationException(message, inner, file, line)
    {
    }

protected:
    String DefaultMessage() const override
    {
        return "Cannot access a disposed object.";
    }
};
} // namespace Tesmo::System
