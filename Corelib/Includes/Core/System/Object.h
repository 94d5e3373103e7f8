#pragma once

#include <Core/System/Checks.h>

namespace Tesmo::System
{
class String;
class Type;

/// Root of the class tree. It has no data: no object knows its own reference count, so any class can be held in an Sp.
class Object
{
public:
    Object() = default;

    /// The run-time type of this object.
    Type GetType() const;

    /// Identity of addresses, unless a class compares by value. False for null.
    virtual bool Equals(const Object& other) const;

    /// The full name of the run-time type, unless a class has a text of its own.
    virtual String ToString() const;

    virtual ~Object() = default;

protected:
    /// The copy that every class of the tree has, unless it has one of its own. A failure of the constructor names the
    /// class that was copied.
    /// @throws ArgumentNullException  other is null
    Object(const Object& other, CallSite site = CallSite::Here())
    {
        NotNull(other, site);
    }
    Object& operator=(const Object& other)
    {
        NotNull(other);
        return *this;
    }
    Object(Object&&) noexcept = default;
    Object& operator=(Object&&) noexcept = default;
};
} // namespace Tesmo::System
