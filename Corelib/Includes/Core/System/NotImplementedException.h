#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System
{
/// An operation that does not exist yet.
class NotImplementedException : public SystemException
{
public:
    [[nodiscard]] NotImplementedException() = default;
    [[nodiscard]] NotImplementedException(const String& message) : SystemException(message) {}
    [[nodiscard]] NotImplementedException(const String& file, int line) : SystemException(file, line) {}
    [[nodiscard]] NotImplementedException(const String& message, const String& file, int line)
        : SystemException(message, file, line)
    {
    }
    [[nodiscard]] NotImplementedException(const String& message, const Exception& inner, const String& file, int line)
        : SystemException(message, inner, file, line)
    {
    }

protected:
    String DefaultMessage() const override
    {
        return "The method or operation is not implemented.";
    }
};
} // namespace Tesmo::System
