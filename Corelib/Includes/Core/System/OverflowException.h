#pragma once

#include <Core/System/ArithmeticException.h>

namespace Tesmo::System
{
/// A result or a value that does not fit its type.
class OverflowException : public ArithmeticException
{
public:
    using ArithmeticException::ArithmeticException;

protected:
    String DefaultMessage() const override
    {
        return "Arithmetic operation resulted in an overflow.";
    }
};
} // namespace Tesmo::System
