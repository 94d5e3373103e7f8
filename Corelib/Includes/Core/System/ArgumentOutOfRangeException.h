#pragma once

#include <Core/System/ArgumentException.h>

namespace Tesmo::System
{
/// An index, count or number outside its range.
class ArgumentOutOfRangeException : public ArgumentException
{
public:
    using ArgumentException::ArgumentException;

protected:
    String DefaultMessage() const override
    {
        return "Specified argument is out of range of valid values.";
    }
};
} // namespace Tesmo::System
