#pragma once

#include <Core/System/Exception.h>

namespace Tesmo::System
{
/// Root of the library's own failures.
class SystemException : public Exception
{
public:
    using Exception::Exception;

protected:
    String DefaultMessage() const override
    {
        return "System error.";
    }
};
} // namespace Tesmo::System
