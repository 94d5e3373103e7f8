#pragma once

#include <Core/System/ArithmeticException.h>

namespace Tesmo::System
{
/// A division by zero.
class DivideByZeroException : public ArithmeticException
{
public:
    [[nodiscard]] DivideByZeroException() = default;
    [[nodiscard]] DivideByZeroException(const String& message) : ArithmeticException(message) {}
    [[nodiscard]] DivideByZeroException(const String& file, int line) : ArithmeticException(file, line) {}
    [[nodiscard]] DivideByZeroException(const String& message, const String& file, int line)
        : ArithmeticException(message, file, line)
    {
    }
    [[nodiscard]] DivideByZeroException(const String& message, const Exception& inner, const String& file, int line)
        : ArithmeticException(message, inner, file, line)
    {
    }

protected:
    String DefaultMessage() const override
    {
        return "Attempt to divide by zero.";
    }
};
} // namespace Tesmo::System
