#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System::Security
{
/// A missing permission.
class SecurityException : public SystemException
{
public:
    using SystemException::SystemException;

protected:
    String DefaultMessage() const override
    {
        return "Security error detected.";
    }
};
} // namespace Tesmo::System::Security
