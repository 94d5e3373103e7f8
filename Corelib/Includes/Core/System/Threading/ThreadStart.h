#pragma once

#include <Core/System/Delegate.h>

namespace Tesmo::System::Threading
{
/// What a thread runs. It must catch every exception itself: one that leaves it ends the process.
using ThreadStart = Delegate<void>;

/// The same with the object that was given to Thread::Start.
using ParameterizedThreadStart = Delegate<void, Object&>;
using ConstParameterizedThreadStart = Delegate<void, const Object&>;
} // namespace Tesmo::System::Threading
