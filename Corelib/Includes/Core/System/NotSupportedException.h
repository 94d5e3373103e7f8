#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System
{
/// An operation that this class or platform does not offer.
class NotSupportedException : public SystemException
{
public:
    [[nodiscard]] NotSupportedException() = default;
    [[nodiscard]] NotSupportedException(const String& message) : SystemException(message) {}
    [[nodiscard]] NotSupportedException(const String& file, int line) : SystemException(file, line) {}
    [[nodiscard]] NotSupportedException(const String& message, const String& file, int line)
        : SystemException(message, file, line)
    {
    }
    [[nodiscard]] NotSupportedException(const String& message, const Exception& inner, const String& file, int line)
        : SystemException(message, inner, file, line)
    {
    }

protected:
    String DefaultMessage() const override
    {
        return "Specified method is not supported.";
    }
};
} // namespace Tesmo::System
