#pragma once

#include <Core/System/ArgumentException.h>

namespace Tesmo::System
{
/// A null reference where an object is required.
class ArgumentNullException : public ArgumentException
{
public:
    [[nodiscard]] ArgumentNullException() = default;
    [[nodiscard]] ArgumentNullException(const String& message) : ArgumentException(message) {}
    [[nodiscard]] ArgumentNullException(const String& file, int line) : ArgumentException(file, line) {}
    [[nodiscard]] ArgumentNullException(const String& message, const String& file, int line)
        : ArgumentException(message, file, line)
    {
    }
    [[nodiscard]] ArgumentNullException(const String& message, const Exception& inner, const String& file, int line)
        : ArgumentException(message, inner, file, line)
    {
    }

protected:
    String DefaultMessage() const override
    {
        return "Value cannot be null.";
    }
};
} // namespace Tesmo::System
