#pragma once

#include <Core/System/IntPtr.h>
#include <Core/System/Object.h>
#include <Core/System/Sp.h>
#include <Core/System/String.h>

namespace Tesmo::System
{
class TimeSpan;
}

namespace Tesmo::Platform
{
enum class WaitObjectResult : int;
struct WaitObject;
}

namespace Tesmo::System::Threading
{
/// Something that threads wait for. Copies share one native object, which is closed with the last of them. Any thread
/// may wait and signal; Close and assignment are for a time when nobody else uses the same C++ object.
///
/// Named objects are shared by all processes on Win32 and within this process on Linux. A name is at most 128 bytes of
/// code page 437; an empty one makes an unnamed object.
class WaitHandle : public Object
{
public:
    /// True for a handle of the same native object; false for null and for closed handles.
    bool Equals(const Object& other) const override;
    ~WaitHandle() override = default;

    /// Releases the native object; a closed handle stays closed.
    virtual void Close();

    /// @throws OverflowException  the time has more than 2147483647 milliseconds
    virtual bool WaitOne(const TimeSpan& timeout);
    /// Waits for the object and takes what it offers.
    /// @param milliseconds  limit, -1 for none
    /// @returns false when the time ran out, or when the owner of a mutex ended without releasing it; the mutex belongs
    ///          to the caller all the same then
    /// @throws AbandonedMutexException  the handle is closed
    /// @throws ArgumentException        milliseconds is below -1
    virtual bool WaitOne(int milliseconds);
    /// The same without limit; the thread shows as waiting meanwhile.
    virtual bool WaitOne();

    /// Signals one object and then waits for another. The two steps are not one: others may come between.
    /// @returns false when the signal or the wait failed
    static bool SignalAndWait(WaitHandle& toSignal, WaitHandle& toWaitOn);
    static bool SignalAndWait(WaitHandle& toSignal, WaitHandle& toWaitOn, int milliseconds);
    /// @throws ArgumentOutOfRangeException  timeout is negative or above 2147483647 milliseconds
    static bool SignalAndWait(WaitHandle& toSignal, WaitHandle& toWaitOn, const TimeSpan& timeout);

protected:
    WaitHandle() = default;

    /// Gives up ownership, adds one permit, or sets the event.
    virtual bool Signal() = 0;

    /// The wait itself, without the checks of WaitOne.
    /// @throws ArgumentException  milliseconds is below -1
    virtual bool Wait(int milliseconds) = 0;

    /// Takes over what the native layer made.
    /// @param createdNew  receives whether the object is new
    /// @throws ArgumentException  the name is too long
    /// @throws IOException        the system refused
    void Adopt(Platform::WaitObjectResult result, Platform::WaitObject* object, bool& createdNew);

    /// The native object; a null pointer once closed.
    Platform::WaitObject* NativeObject() const;

    static bool WaitFor(Platform::WaitObject& object, int milliseconds);

    /// The name in the bytes that the native layer takes.
    /// @throws ArgumentNullException  name is null
    static Up<char[]> NativeName(const String& name);

    /// @throws ArgumentNullException  name is null or empty
    static Up<char[]> NativeNameOfExisting(const String& name);

private:
    Sp<IntPtr> handle; ///< its last owner closes the native object
};
} // namespace Tesmo::System::Threading
