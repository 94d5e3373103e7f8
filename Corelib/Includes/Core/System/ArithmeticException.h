#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System
{
/// Root of the arithmetic failures.
class ArithmeticException : public SystemException
{
public:
    [[nodiscard]] ArithmeticException() = default;
    [[nodiscard]] ArithmeticException(const String& message) : SystemException(message) {}
    [[nodiscard]] ArithmeticException(const String& file, int line) : SystemException(file, line) {}
    [[nodiscard]] ArithmeticException(const String& message, const String& file, int line)
        : SystemException(message, file, line)
    {
    }
    [[nodiscard]] ArithmeticException(const String& message, const Exception& inner, const String& file, int line)
        : SystemException(message, inner, file, line)
    {
    }

protected:
    String DefaultMessage() const override
    {
        return "Overflow or underflow in the arithmetic operation.";
    }
};
} // namespace Tesmo::System
