#pragma once

#include <Core/System/Object.h>
#include <Core/System/Virtual.h>

namespace Tesmo::System
{
/// Objects that can copy themselves without the caller knowing their class.
class ICloneable : public Virtual
{
public:
    /// A new heap object, which the caller owns.
    virtual Object* Clone() const = 0;
};
} // namespace Tesmo::System
