#pragma once

#include <Core/System/Threading/EventWaitHandle.h>

namespace Tesmo::System::Threading
{
/// An event that lets one waiter pass for each Set.
class AutoResetEvent : public EventWaitHandle
{
public:
    /// @param initialState  true: the first waiter passes without a Set
    explicit AutoResetEvent(bool initialState) : EventWaitHandle(initialState, EventResetMode::AutoReset) {}
};
} // namespace Tesmo::System::Threading
