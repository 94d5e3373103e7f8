#include <Core/System/Object.h>

#include <Core/System/String.h>
#include <Core/System/Type.h>

namespace Tesmo::System
{
Type Object::GetType() const
{
    return Type(typeid(*this));
}

bool Object::Equals(const Object& other) const
{
    return this == &other;
}

String Object::ToString() const
{
    return GetType().ToString();
}
} // namespace Tesmo::System
