#pragma once

#include <Core/System/ArgumentException.h>

namespace Tesmo::System
{
/// An index, count or number outside its range.
class ArgumentOutOfRangeException : public ArgumentException
{
public:
    [[nodiscard]] ArgumentOutOfRangeException() = default;
    [[nodiscard]] ArgumentOutOfRangeException(const String& message) : ArgumentException(message) {}
    [[nodiscard]] ArgumentOutOfRangeException(const String& file, int line) : ArgumentException(file, line) {}
    [[nodiscard]] ArgumentOutOfRangeException(const String& message, const String& file, int line)
        : ArgumentException(message, file, line)
    {
    }
    [[nodiscard]] ArgumentOutOfRangeException(const String& message, const Exception& inner, const String& file,
                                              int line)
        : ArgumentException(message, inner, file, line)
    {
    }

protected:
    String DefaultMessage() const override
    {
        return "Specified argument is out of range of valid values.";
    }
};
} // namespace Tesmo::System
