#pragma once

#include <Core/System/Null.h>

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
    Object(const Object&) = default;
    Object& operator=(const Object&) = default;
};
} // namespace Tesmo::System
