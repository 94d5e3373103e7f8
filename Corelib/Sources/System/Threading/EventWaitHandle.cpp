#include <Core/System/Threading/EventWaitHandle.h>

#include <Platform/WaitObjects.h>

#include <Core/System/Threading/AbandonedMutexException.h>
#include <Core/System/ThrowSite.h>

namespace Tesmo::System::Threading
{
EventWaitHandle::EventWaitHandle(bool initialState, EventResetMode mode) : EventWaitHandle(initialState, mode, "") {}

EventWaitHandle::EventWaitHandle(bool initialState, EventResetMode mode, const String& name)
{
    bool createdNew = false;
    *this = EventWaitHandle(initialState, mode, name, createdNew);
}

EventWaitHandle::EventWaitHandle(bool initialState, EventResetMode mode, const String& name, bool& createdNew)
{
    const Up<char[]> bytes = NativeName(name);
    Platform::WaitObject* object = nullptr;
    const Platform::WaitObjectResult result =
        Platform::NewEvent(mode == EventResetMode::ManualReset, initialState, bytes.Get(), object);
    Adopt(result, object, createdNew);
}

EventWaitHandle EventWaitHandle::OpenExisting(const String& name)
{
    const Up<char[]> bytes = NativeNameOfExisting(name);
    Platform::WaitObject* object = nullptr;
    bool createdNew = false;
    EventWaitHandle event;
    const Platform::WaitObjectResult result = Platform::OpenNamedEvent(bytes.Get(), object);
    event.Adopt(result, object, createdNew);
    return event;
}

bool EventWaitHandle::Set()
{
    return Platform::SetEventObject(Native()) == 0;
}

bool EventWaitHandle::Reset()
{
    return Platform::ResetEventObject(Native()) == 0;
}

bool EventWaitHandle::Signal()
{
    return Set();
}

bool EventWaitHandle::Wait(int milliseconds)
{
    return WaitFor(Native(), milliseconds);
}

Platform::WaitObject& EventWaitHandle::Native() const
{
    Platform::WaitObject* const object = NativeObject();
    if (object == nullptr)
    {
        throw AbandonedMutexException(ThrowSite);
    }
    return *object;
}
} // namespace Tesmo::System::Threading
