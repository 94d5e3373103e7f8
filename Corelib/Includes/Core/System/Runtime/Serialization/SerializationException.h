#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System::Runtime::Serialization
{
/// A failed serialization.
class SerializationException : public SystemException
{
public:
    [[nodiscard]] SerializationException() = default;
    [[nodiscard]] SerializationException(const String& message) : SystemException(message) {}
    [[nodiscard]] SerializationException(const String& file, int line) : SystemException(file, line) {}
    [[nodiscard]] SerializationException(const String& message, const String& file, int line)
        : SystemException(message, file, line)
    {
    }
    [[nodiscard]] SerializationException(const String& message, const Exception& inner, const String& file, int line)
        : SystemException(message, inner, file, line)
    {
    }

protected:
    String DefaultMessage() const override
    {
        return "Serialization error.";
    }
};
} // namespace Tesmo::System::Runtime::Serialization
