#pragma once

#include <Core/System/Virtual.h>

namespace Tesmo::System
{
/// Source of formatting rules. There is no culture in this library: no formatter consults it, it is carried through
/// every signature and that is all.
class IFormatProvider : public Virtual
{
};
} // namespace Tesmo::System
