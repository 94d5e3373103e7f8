#pragma once

#include <Core/System/Attribute.h>

namespace Tesmo::System
{
/// Marks an enumeration whose values are bits that combine.
class FlagsAttribute : public Attribute
{
};
} // namespace Tesmo::System
