#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System::Threading
{
/// A wait on a handle that was closed.
class AbandonedMutexException : public SystemException
{
public:
    using SystemException::SystemException;

protected:
    String DefaultMessage() const override
    {
        return "The wait completed due to an abandoned mutex.";
    }
};
} // namespace Tesmo::System::Threading
