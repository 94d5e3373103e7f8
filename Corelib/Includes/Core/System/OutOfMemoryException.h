#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System
{
/// No memory, or no slot, for a new object.
class OutOfMemoryException : public SystemException
{
public:
    using SystemException::SystemException;

protected:
    String DefaultMessage() const override
    {
        return "Insufficient memory to continue the execution of the program.";
    }
};
} // namespace Tesmo::System
