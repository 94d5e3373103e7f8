#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System
{
/// An object of another class than asked for.
class InvalidCastException : public SystemException
{
public:
    using SystemException::SystemException;

protected:
    String DefaultMessage() const override
    {
        return "Specified cast is not valid.";
    }
};
} // namespace Tesmo::System
