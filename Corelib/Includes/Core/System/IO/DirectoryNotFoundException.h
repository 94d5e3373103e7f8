#pragma once

#include <Core/System/IO/IOException.h>

namespace Tesmo::System::IO
{
/// A directory that is not there.
class DirectoryNotFoundException : public IOException
{
public:
    using IOException::IOException;

protected:
    String DefaultMessage() const override
    {
        return "Attempted to access a path that is not on the disk.";
    }
};
} // namespace Tesmo::System::IO
