#pragma once

#include <Core/System/Object.h>

namespace Tesmo::System
{
/// The empty event argument, and the base of those that carry data.
class EventArgs : public Object
{
};
} // namespace Tesmo::System
