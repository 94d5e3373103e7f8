#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System
{
/// A call that the object's state does not allow.
class InvalidOperationException : public SystemException
{
public:
    using SystemException::SystemException;

protected:
    String DefaultMessage() const override
    {
        return "Operation is not valid due to the current state of the object.";
    }
};
} // namespace Tesmo::System
