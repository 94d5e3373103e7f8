#pragma once

#include <Core/System/Threading/EventResetMode.h>
#include <Core/System/Threading/WaitHandle.h>

namespace Tesmo::System::Threading
{
/// A signal between threads.
class EventWaitHandle : public WaitHandle
{
public:
    /// @throws IOException  the system refused
    EventWaitHandle(bool initialState, EventResetMode mode);
    /// A named event that exists already keeps its own state and mode.
    /// @throws ArgumentNullException  name is null
    /// @throws ArgumentException      name is longer than 128 bytes
    /// @throws IOException            the name belongs to another kind of object
    EventWaitHandle(bool initialState, EventResetMode mode, const String& name);
    /// @param createdNew  receives whether the event is new
    EventWaitHandle(bool initialState, EventResetMode mode, const String& name, bool& createdNew);

    /// @throws ArgumentNullException  name is null or empty
    /// @throws IOException            there is no event of that name
    static EventWaitHandle OpenExisting(const String& name);

    /// @returns whether the system did it
    /// @throws AbandonedMutexException  the event is closed
    bool Set();
    bool Reset();

protected:
    bool Signal() override;
    bool Wait(int milliseconds) override;

private:
    EventWaitHandle() = default;
    Platform::WaitObject& Native() const;
};
} // namespace Tesmo::System::Threading
