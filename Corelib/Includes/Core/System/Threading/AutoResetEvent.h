#pragma once

#include <Core/System/Threading/EventWaitHandle.h>

namespace Tesmo::System::Threading
{
/// An event that lets one waiter pass for each Set.
class AutoResetEvent : public EventWaitHandle
{
public:
    explicit AutoResetEvent(bool initialState) : EventWaitHandle(initialState, EventResetMode::AutoReset) {}
};
} // namespace Tesmo::System::Threading
