#pragma once

#include <Core/System/IntPtr.h>
#include <Core/System/Sp.h>
#include <Core/System/String.h>
#include <Core/System/Threading/ThreadPriority.h>
#include <Core/System/Threading/ThreadStart.h>
#include <Core/System/Threading/ThreadState.h>
#include <Core/System/Up.h>

namespace Tesmo::System
{
class TimeSpan;
}

namespace Tesmo::System::Threading
{
/// A thread that is built around a delegate, started once and joined. The thread may outlive this object. Stopping is
/// the delegate's own business: a flag that it looks at, and Join.
///
/// Abort, Interrupt, Suspend and Resume act on the native thread by force, without its clean-ups; where the platform
/// has no such calls (Linux) they throw NotSupportedException.
class Thread : public Object
{
public:
    /// @param maxStackSize  bytes, 0 for the system's default; small values are raised to what the platform needs
    /// @throws ArgumentNullException  start is null or empty
    explicit Thread(const ThreadStart& start, int maxStackSize = 0);
    explicit Thread(const ParameterizedThreadStart& start, int maxStackSize = 0);
    explicit Thread(const ConstParameterizedThreadStart& start, int maxStackSize = 0);
    ~Thread() override;

    Thread(const Thread&) = delete;
    Thread& operator=(const Thread&) = delete;

    /// Starts the thread without a parameter; it runs the delegate of the form without one.
    /// @throws ThreadStateException  started before
    /// @throws OutOfMemoryException  2047 threads run already, or the system has no room for another
    void Start();
    /// @param parameter  must outlive the delegate's use of it; null starts as the form without a parameter
    void Start(Object& parameter);
    void Start(const Object& parameter);

    /// Waits for the thread's end.
    /// @throws ThreadStateException  not started
    void Join();
    /// @param milliseconds  limit, -1 for none
    /// @returns false when the time ran out
    /// @throws ThreadStateException  not started
    /// @throws ArgumentException     milliseconds is below -1
    bool Join(int milliseconds);
    bool Join(const TimeSpan& timeout);

    /// @param milliseconds  -1 for ever, 0 lets other threads that are ready run first
    /// @throws ArgumentException  milliseconds is below -1
    static void Sleep(int milliseconds);
    static void Sleep(const TimeSpan& timeout);

    /// True from Start until the thread has ended.
    bool IsAlive() const;
    Threading::ThreadState ThreadState() const;
    String Name() const;
    /// Also shown by system tools, cut to 15 bytes on Linux.
    /// @throws ArgumentNullException  value is null
    void Name(const String& value);
    long long ManagedThreadId() const; ///< the platform's identifier, 0 until started
    IntPtr Handle() const;             ///< the native layer's slot, Zero until started

    /// @throws ThreadStateException  not running, or the platform does not tell
    ThreadPriority Priority() const;
    /// May be set before the start. A thread that has ended takes any value.
    /// @throws ThreadStateException  aborted, or refused by the platform (Linux: an unprivileged process may not raise
    ///                               a thread, not even back to Normal)
    void Priority(const ThreadPriority& value);

    /// Ends the thread at once if it has called EnableAbort, and then throws ThreadAbortException here.
    void Abort();
    /// Ends the thread at once, now or at its next wait, and then throws ThreadInterruptedException.
    void Interrupt();
    /// @throws ThreadStateException  not running
    void Suspend();
    /// @throws ThreadStateException  not started, ended or suspended
    void Resume();

    /// A new object for the calling thread.
    static Up<Thread> CurrentThread();

    /// Allow and forbid Abort on the calling thread.
    static void EnableAbort();
    static void ResetAbort();

    /// The record that all objects of one thread share.
    class ThreadData;

private:
    explicit Thread(const Sp<ThreadData>& record);
    void StartNative(const Object* parameter);

    Sp<ThreadData> data;
};
} // namespace Tesmo::System::Threading
