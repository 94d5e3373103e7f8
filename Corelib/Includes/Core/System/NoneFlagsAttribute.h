#pragma once

#include <Core/System/Attribute.h>

namespace Tesmo::System
{
/// Marks an enumeration whose values do not combine.
class NoneFlagsAttribute : public Attribute
{
};
} // namespace Tesmo::System
