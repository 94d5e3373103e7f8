#pragma once

#include <Core/System/Virtual.h>

namespace Tesmo::System
{
/// Objects with an order.
class IComparable : public Virtual
{
public:
    /// Below 0 if this object sorts before other, 0 if they sort alike, above 0 if it sorts after; 1 for null.
    virtual int CompareTo(const IComparable& other) const = 0;
};
} // namespace Tesmo::System
