#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System::Threading
{
/// A wait on a handle that was closed.
class AbandonedMutexException : public SystemException
{
public:
    [[nodiscard]] AbandonedMutexException() = default;
    [[nodiscard]] AbandonedMutexException(const String& message) : SystemException(message) {}
    [[nodiscard]] AbandonedMutexException(const String& file, int line) : SystemException(file, line) {}
    [[nodiscard]] AbandonedMutexException(const String& message, const String& file, int line)
        : SystemException(message, file, line)
    {
    }
    [[nodiscard]] AbandonedMutexException(const String& message, const Exception& inner, const String& file, int line)
        : SystemException(message, inner, file, line)
    {
    }

protected:
    String DefaultMessage() const override
    {
        return "The wait completed due to an abandoned mutex.";
    }
};
} // namespace Tesmo::System::Threading
