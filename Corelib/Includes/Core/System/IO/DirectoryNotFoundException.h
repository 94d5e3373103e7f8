#pragma once

#include <Core/System/IO/IOException.h>

namespace Tesmo::System::IO
{
/// A directory that is not there.
class DirectoryNotFoundException : public IOException
{
public:
    [[nodiscard]] DirectoryNotFoundException() = default;
    [[nodiscard]] DirectoryNotFoundException(const String& message) : IOException(message) {}
    [[nodiscard]] DirectoryNotFoundException(const String& file, int line) : IOException(file, line) {}
    [[nodiscard]] DirectoryNotFoundException(const String& message, const String& file, int line)
        : IOException(message, file, line)
    {
    }
    [[nodiscard]] DirectoryNotFoundException(const String& message, const Exception& inner, const String& file,
                                             int line)
        : IOException(message, inner, file, line)
    {
    }

protected:
    String DefaultMessage() const override
    {
        return "Attempted to access a path that is not on the disk.";
    }
};
} // namespace Tesmo::System::IO
