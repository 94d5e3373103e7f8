#pragma once

#include <Core/System/IO/IOException.h>

namespace Tesmo::System::IO
{
/// A file that is not there.
class FileNotFoundException : public IOException
{
public:
    [[nodiscard]] FileNotFoundException() = default;
    [[nodiscard]] FileNotFoundException(const String& message) : IOException(message) {}
    [[nodiscard]] FileNotFoundException(const String& file, int line) : IOException(file, line) {}
    [[nodiscard]] FileNotFoundException(const String& message, const String& file, int line)
        : IOException(message, file, line)
    {
    }
    [[nodiscard]] FileNotFoundException(const String& message, const Exception& inner, const String& file, int line)
        : IOException(message, inner, file, line)
    {
    }

protected:
    String DefaultMessage() const override
    {
        return "Unable to find the specified file.";
    }
};
} // namespace Tesmo::System::IO
