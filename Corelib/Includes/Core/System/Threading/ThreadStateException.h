#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System::Threading
{
/// A call that the thread's state does not allow.
class ThreadStateException : public SystemException
{
public:
    [[nodiscard]] ThreadStateException() = default;
    [[nodiscard]] ThreadStateException(const String& message) : SystemException(message) {}
    [[nodiscard]] ThreadStateException(const String& file, int line) : SystemException(file, line) {}
    [[nodiscard]] ThreadStateException(const String& message, const String& file, int line)
        : SystemException(message, file, line)
    {
    }
    [[nodiscard]] ThreadStateException(const String& message, const Exception& inner, const String& file, int line)
        : SystemException(message, inner, file, line)
    {
    }

protected:
    String DefaultMessage() const override
    {
        return "Thread was in an invalid state for the operation being executed.";
    }
};
} // namespace Tesmo::System::Threading
