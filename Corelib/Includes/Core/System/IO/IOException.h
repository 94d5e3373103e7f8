#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System::IO
{
/// A failed input or output operation.
class IOException : public SystemException
{
public:
    [[nodiscard]] IOException() = default;
    [[nodiscard]] IOException(const String& message) : SystemException(message) {}
    [[nodiscard]] IOException(const String& file, int line) : SystemException(file, line) {}
    [[nodiscard]] IOException(const String& message, const String& file, int line)
        : SystemException(message, file, line)
    {
    }
    [[nodiscard]] IOException(const String& message, const Exception& inner, const String& file, int line)
        : SystemException(message, inner, file, line)
    {
    }

protected:
    String DefaultMessage() const override
    {
        return "I/O error occured.";
    }
};
} // namespace Tesmo::System::IO
