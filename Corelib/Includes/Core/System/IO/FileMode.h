#pragma once

#include <Core/System/EnumDeprecated.h>

namespace Tesmo::System::IO
{
/// How a file is opened.
class FileMode : public EnumDeprecated
{
public:
    enum Constant
    {
        CreateNew = 1, ///< there must be none
        Create = 2,
        Open = 3, ///< there must be one
        OpenOrCreate = 4,
        Truncate = 5, ///< there must be one; it is emptied
        Append = 6,   ///< every write goes to the end; for writing only
    };

    /// A number that no constant has is kept, and prints in decimal.
    FileMode(Constant constant) : EnumDeprecated(constant) {}
    explicit FileMode(int number) : EnumDeprecated(number) {}

    const NameTable& Names() const override;
};
} // namespace Tesmo::System::IO
