#pragma once

#include <Core/System/ArgumentException.h>

namespace Tesmo::System
{
/// A null reference where an object is required.
class ArgumentNullException : public ArgumentException
{
public:
    using ArgumentException::ArgumentException;

protected:
    String DefaultMessage() const override
    {
        return "Value cannot be null.";
    }
};
} // namespace Tesmo::System
