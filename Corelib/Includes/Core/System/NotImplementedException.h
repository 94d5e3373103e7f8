#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System
{
/// An operation that does not exist yet.
class NotImplementedException : public SystemException
{
public:
    using SystemException::SystemException;

protected:
    String DefaultMessage() const override
    {
        return "The method or operation is not implemented.";
    }
};
} // namespace Tesmo::System
