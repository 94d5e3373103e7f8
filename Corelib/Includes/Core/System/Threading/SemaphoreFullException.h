#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System::Threading
{
/// A release past a semaphore's maximum.
class SemaphoreFullException : public SystemException
{
public:
    using SystemException::SystemException;

protected:
    String DefaultMessage() const override
    {
        return "Adding the specified countto the semaphore wold cause it to exceed its maximum count.";
    }
};
} // namespace Tesmo::System::Threading
