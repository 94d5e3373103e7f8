#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System
{
/// A bad value for an argument.
class ArgumentException : public SystemException
{
public:
    using SystemException::SystemException;

protected:
    String DefaultMessage() const override
    {
        return "Value does not fall within the expected range.";
    }
};
} // namespace Tesmo::System
