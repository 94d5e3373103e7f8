#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System
{
/// Root of the arithmetic failures.
class ArithmeticException : public SystemException
{
public:
    using SystemException::SystemException;

protected:
    String DefaultMessage() const override
    {
        return "Overflow or underflow in the arithmetic operation.";
    }
};
} // namespace Tesmo::System
