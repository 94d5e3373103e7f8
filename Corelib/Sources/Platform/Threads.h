#pragma once

namespace Tesmo::Platform
{
/// One place in the fixed table of threads. A place stays taken until the thread has ended and its owner has closed it.
struct ThreadSlot;

using ThreadRoutine = void (*)(void* argument);

constexpr int ThreadSlotCount = 2048; ///< places in all; the first belongs to the main thread
constexpr int NormalThreadPriority = 2;

/// Starts a thread in the first free place after the main thread's. It runs already when this returns.
/// @param id         receives the platform's thread identifier
/// @param stackSize  bytes of address space, 256 KiB at least; 0 for the system's default
/// @returns null when all places are taken or the system refuses another thread
ThreadSlot* StartThread(ThreadRoutine routine, void* argument, long long& id, int stackSize);

/// Gives up a place that StartThread gave; the thread itself runs on. The caller must not use the slot afterwards.
void CloseThread(ThreadSlot& slot);

/// The place of the calling thread; the first thread that asks is the main thread. Null for a thread that was started
/// by other means than StartThread.
ThreadSlot* CurrentThreadSlot();

/// The platform's identifier of the calling thread, as system tools show it. Reused after the thread's end.
long long CurrentThreadId();

/// Priorities run from 0 (lowest) to 4 (highest); a thread starts with the normal one. Linux has steps of 5 nice levels
/// around the level of the main thread, or of the starter where the user may not raise a thread.
bool GetThreadPriority(ThreadSlot& slot, int& priority);

/// A value above 4 counts as normal. Refused below 0 (Win32 takes -13, its idle level) and where the user may not raise
/// a thread; for a thread that has ended, any other value succeeds.
bool SetThreadPriority(ThreadSlot& slot, int priority);

/// Shows the name (UTF-8) to debuggers and system tools, cut to what they can hold.
void NameThread(ThreadSlot& slot, const char* name);

/// True where threads can be suspended, resumed and terminated from outside; elsewhere the next three return false.
bool CanControlThreads();
bool SuspendThread(ThreadSlot& slot);
bool ResumeThread(ThreadSlot& slot);
bool TerminateThread(ThreadSlot& slot, int code);

/// @param milliseconds  -1 for ever, 0 lets other threads that are ready run first
void SleepThread(int milliseconds);

/// Waits for the end of the thread, thread_local destructors included; true once it has ended. Several may wait.
/// @param milliseconds  -1 for no limit; a lower value gives false
bool WaitThread(ThreadSlot& slot, int milliseconds);
} // namespace Tesmo::Platform
