#pragma once

#include <Core/System/SystemException.h>

namespace Tesmo::System::Runtime::Serialization
{
/// A failed serialization.
class SerializationException : public SystemException
{
public:
    using SystemException::SystemException;

protected:
    String DefaultMessage() const override
    {
        return "Serialization error.";
    }
};
} // namespace Tesmo::System::Runtime::Serialization
