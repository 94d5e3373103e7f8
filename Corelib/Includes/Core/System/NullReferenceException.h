#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System
{
/// A use of an object that is not there.
class NullReferenceException : public SystemException
{
public:
    using SystemException::SystemException;

protected:
    String DefaultMessage() const override
    {
        return "Object reference not set to an instance of an object.";
    }
};
} // namespace Tesmo::System
