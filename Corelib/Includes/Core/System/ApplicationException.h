#pragma once

#include <Core/System/Exception.h>

namespace Tesmo::System
{
/// A failure of the application's own kind.
class ApplicationException : public Exception
{
public:
    using Exception::Exception;

protected:
    String DefaultMessage() const override
    {
        return "Error in the application.";
    }
};
} // namespace Tesmo::System
