#pragma once

#include <Core/System/InvalidOperationException.h>

namespace Tesmo::System
{
/// A call on an object that was closed.
class ObjectClosedException : public InvalidOperationException
{
public:
    using InvalidOperationException::InvalidOperationException;

protected:
    String DefaultMessage() const override
    {
        return "Cannot access a closed object.";
    }
};
} // namespace Tesmo::System
