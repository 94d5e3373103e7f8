#pragma once

#include <Core/System/Virtual.h>

namespace Tesmo::System
{
/// An enumeration as an object.
class IEnum : public Virtual
{
public:
    /// The enumeration's value as a 32-bit integer.
    virtual int ToInt32() const = 0;
};
} // namespace Tesmo::System
