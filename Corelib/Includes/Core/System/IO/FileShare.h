#pragma once

#include <Core/System/EnumDeprecated.h>

namespace Tesmo::System::IO
{
/// What others may do with a file while it is open. Files are always opened so that others may read and write them: the
/// values lock nothing out.
class FileShare : public EnumDeprecated
{
public:
    enum Constant
    {
        None = 0,
        Read = 1,
        Write = 2,
        ReadWrite = 3,
        Delete = 4,
        Inheritable = 16,
    };

    /// A number that no constant has is kept, and prints in decimal.
    FileShare(Constant constant = None) : EnumDeprecated(constant) {}
    explicit FileShare(int number) : EnumDeprecated(number) {}

    const NameTable& Names() const override;
};
} // namespace Tesmo::System::IO
