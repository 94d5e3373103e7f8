#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System
{
/// Text that does not have the form that is asked for.
class FormatException : public SystemException
{
public:
    using SystemException::SystemException;

protected:
    String DefaultMessage() const override
    {
        return "One of identified items is an invalid format.";
    }
};
} // namespace Tesmo::System
