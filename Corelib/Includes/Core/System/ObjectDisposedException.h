#pragma once

#include <Core/System/InvalidOperationException.h>

namespace Tesmo::System
{
/// A call on an object that was disposed of.
class ObjectDisposedException : public InvalidOperationException
{
public:
    using InvalidOperationException::InvalidOperationException;

protected:
    String DefaultMessage() const override
    {
        return "Cannot access a disposed object.";
    }
};
} // namespace Tesmo::System
