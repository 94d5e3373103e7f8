#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System::Threading
{
/// A thread that was ended by force.
class ThreadAbortException : public SystemException
{
public:
    [[nodiscard]] ThreadAbortException() = default;
    [[nodiscard]] ThreadAbortException(const String& message) : SystemException(message) {}
    [[nodiscard]] ThreadAbortException(const String& file, int line) : SystemException(file, line) {}
    [[nodiscard]] ThreadAbortException(const String& message, const String& file, int line)
        : SystemException(message, file, line)
    {
    }
    [[nodiscard]] ThreadAbortException(const String& message, const Exception& inner, const String& file, int line)
        : SystemException(message, inner, file, line)
    {
    }

protected:
    String DefaultMessage() const override
    {
        return "Thread was aborted.";
    }
};
} // namespace Tesmo::System::Threading
