#pragma once

#include <Core/System/Virtual.h>

namespace Tesmo::System
{
/// Objects that can be the key of a hash table.
class IHashable : public Virtual
{
public:
    /// Equal objects give equal numbers.
    virtual int GetHashCode() const = 0;
};
} // namespace Tesmo::System
