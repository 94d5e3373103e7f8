#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System
{
/// An index outside a buffer.
class IndexOutOfRangeException : public SystemException
{
public:
    [[nodiscard]] IndexOutOfRangeException() = default;
    [[nodiscard]] IndexOutOfRangeException(const String& message) : SystemException(message) {}
    [[nodiscard]] IndexOutOfRangeException(const String& file, int line) : SystemException(file, line) {}
    [[nodiscard]] IndexOutOfRangeException(const String& message, const String& file, int line)
        : SystemException(message, file, line)
    {
    }
    [[nodiscard]] IndexOutOfRangeException(const String& message, const Exception& inner, const String& file, int line)
        : SystemException(message, inner, file, line)
    {
    }

protected:
    String DefaultMessage() const override
    {
        return "Index was outside the bounds of the array.";
    }
};
} // namespace Tesmo::System
