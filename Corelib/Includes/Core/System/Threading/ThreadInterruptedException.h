#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System::Threading
{
/// A thread that was ended while it waited.
class ThreadInterruptedException : public SystemException
{
public:
    using SystemException::SystemException;

protected:
    String DefaultMessage() const override
    {
        return "Thread was interrupted from a waiting state.";
    }
};
} // namespace Tesmo::System::Threading
