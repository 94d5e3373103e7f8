#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System::IO
{
/// A failed input or output operation.
class IOException : public SystemException
{
public:
    using SystemException::SystemException;

protected:
    String DefaultMessage() const override
    {
        return "I/O error occured.";
    }
};
} // namespace Tesmo::System::IO
