#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System
{
/// An index outside a buffer.
class IndexOutOfRangeException : public SystemException
{
public:
    using SystemException::SystemException;

protected:
    String DefaultMessage() const override
    {
        return "Index was outside the bounds of the array.";
    }
};
} // namespace Tesmo::System
