#pragma once

#include <Core/System/TypeLoadException.h>

namespace Tesmo::System
{
/// A library without the function asked for.
class EntryPointNotFoundException : public TypeLoadException
{
public:
    using TypeLoadException::TypeLoadException;

protected:
    String DefaultMessage() const override
    {
        return "Entry point was not found.";
    }
};
} // namespace Tesmo::System
