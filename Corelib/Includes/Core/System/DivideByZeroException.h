#pragma once

#include <Core/System/ArithmeticException.h>

namespace Tesmo::System
{
/// A division by zero.
class DivideByZeroException : public ArithmeticException
{
public:
    using ArithmeticException::ArithmeticException;

protected:
    String DefaultMessage() const override
    {
        return "Attempt to divide by zero.";
    }
};
} // namespace Tesmo::System
