#pragma once

#include <Core/System/ArithmeticException.h>

namespace Tesmo::System
{
/// A result or a value that does not fit its type.
class OverflowException : public ArithmeticException
{
public:
    [[nodiscard]] OverflowException() = default;
    [[nodiscard]] OverflowException(const String& message) : ArithmeticException(message) {}
    [[nodiscard]] OverflowException(const String& file, int line) : ArithmeticException(file, line) {}
    [[nodiscard]] OverflowException(const String& message, const String& file, int line)
        : ArithmeticException(message, file, line)
    {
    }
    [[nodiscard]] OverflowException(const String& message, const Exception& inner, const String& file, int line)
        : ArithmeticException(message, inner, file, line)
    {
    }

protected:
    String DefaultMessage() const override
    {
        return "Arithmetic operation resulted in an overflow.";
    }
};
} // namespace Tesmo::System
