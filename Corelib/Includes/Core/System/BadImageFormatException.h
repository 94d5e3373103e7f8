#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System
{
/// A file that is no library.
class BadImageFormatException : public SystemException
{
public:
    using SystemException::SystemException;

protected:
    String DefaultMessage() const override
    {
        return "Format for the executable or library is invalid.";
    }
};
} // namespace Tesmo::System
