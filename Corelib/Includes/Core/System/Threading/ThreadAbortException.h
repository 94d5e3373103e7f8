#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System::Threading
{
/// A thread that was ended by force.
class ThreadAbortException : public SystemException
{
public:
    using SystemException::SystemException;

protected:
    String DefaultMessage() const override
    {
        return "Thread was aborted.";
    }
};
} // namespace Tesmo::System::Threading
