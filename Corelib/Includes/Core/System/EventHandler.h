#pragma once

#include <Core/System/Delegate.h>
#include <Core/System/EventArgs.h>

namespace Tesmo::System
{
/// An event: handlers take the sender and the event's argument.
using EventHandler = Delegate<void, const Object&, const EventArgs&>;
} // namespace Tesmo::System
