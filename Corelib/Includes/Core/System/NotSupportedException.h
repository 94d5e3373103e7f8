#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System
{
/// An operation that this class or platform does not offer.
class NotSupportedException : public SystemException
{
public:
    using SystemException::SystemException;

protected:
    String DefaultMessage() const override
    {
        return "Specified method is not supported.";
    }
};
} // namespace Tesmo::System
