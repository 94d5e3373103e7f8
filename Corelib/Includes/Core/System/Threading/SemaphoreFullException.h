#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System::Threading
{
/// A release past a semaphore's maximum.
class SemaphoreFullException : public SystemException
{
public:
    [[nodiscard]] SemaphoreFullException() = default;
    [[nodiscard]] SemaphoreFullException(const String& message) : SystemException(message) {}
    [[nodiscard]] SemaphoreFullException(const String& file, int line) : SystemException(file, line) {}
    [[nodiscard]] SemaphoreFullException(const String& message, const String& file, int line)
        : SystemException(message, file, line)
    {
    }
    [[nodiscard]] SemaphoreFullException(const String& message, const Exception& inner, const String& file, int line)
        : SystemException(message, inner, file, line)
    {
    }

protected:
    String DefaultMessage() const override
    {
        return "Adding the specified countto the semaphore wold cause it to exceed its maximum count.";
    }
};
} // namespace Tesmo::System::Threading
