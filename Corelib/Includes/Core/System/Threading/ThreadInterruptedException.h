#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System::Threading
{
/// A thread that was ended while it waited.
class ThreadInterruptedException : public SystemException
{
public:
    [[nodiscard]] ThreadInterruptedException() = default;
    [[nodiscard]] ThreadInterruptedException(const String& message) : SystemException(message) {}
    [[nodiscard]] ThreadInterruptedException(const String& file, int line) : SystemException(file, line) {}
    [[nodiscard]] ThreadInterruptedException(const String& message, const String& file, int line)
        : SystemException(message, file, line)
    {
    }
    [[nodiscard]] ThreadInterruptedException(const String& message, const Exception& inner, const String& file,
                                             int line)
        : SystemException(message, inner, file, line)
    {
    }

protected:
    String DefaultMessage() const override
    {
        return "Thread was interrupted from a waiting state.";
    }
};
} // namespace Tesmo::System::Threading
