#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System
{
/// A type that could not be loaded.
class TypeLoadException : public SystemException
{
public:
    using SystemException::SystemException;

protected:
    String DefaultMessage() const override
    {
        return "Failure has occurred while loading a type";
    }
};
} // namespace Tesmo::System
