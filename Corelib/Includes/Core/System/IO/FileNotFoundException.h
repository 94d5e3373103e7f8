#pragma once

#include <Core/System/IO/IOException.h>

namespace Tesmo::System::IO
{
/// A file that is not there.
class FileNotFoundException : public IOException
{
public:
    using IOException::IOException;

protected:
    String DefaultMessage() const override
    {
        return "Unable to find the specified file.";
    }
};
} // namespace Tesmo::System::IO
