#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System::Threading
{
/// A call that the thread's state does not allow.
class ThreadStateException : public SystemException
{
public:
    using SystemException::SystemException;

protected:
    String DefaultMessage() const override
    {
        return "Thread was in an invalid state for the operation being executed.";
    }
};
} // namespace Tesmo::System::Threading
