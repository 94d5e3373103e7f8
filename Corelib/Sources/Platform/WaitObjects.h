#pragma once

namespace Tesmo::Platform
{
/// An object that threads wait for: a re-entrant mutex, a semaphore or an event. Every operation may be called from any
/// thread; results that are numbers are 0 for success or the platform's code.
struct WaitObject;

/// Outcome of making or opening an object.
enum class WaitObjectResult : int
{
    Created = 0,
    NameTooLong = 1,
    Failed = 2,
    Existing = 3 ///< it was there before, and keeps its state: the start values are ignored
};

/// Longest name in bytes.
constexpr int WaitNameLimit = 128;

/// The semaphore's count would pass its maximum (winerror.h: ERROR_TOO_MANY_POSTS).
constexpr int WaitTooManyPosts = 298;

/// An empty name makes an unnamed object. Named objects are shared by the whole system on Win32 and within the process
/// on Linux; mutexes, semaphores and events share one set of names.
WaitObjectResult NewMutex(bool initiallyOwned, const char* name, WaitObject*& object);
WaitObjectResult NewSemaphore(int initialCount, int maximumCount, const char* name, WaitObject*& object);
WaitObjectResult NewEvent(bool manualReset, bool initialState, const char* name, WaitObject*& object);

/// Opens a named object that exists; Failed where there is none of that kind.
WaitObjectResult OpenNamedMutex(const char* name, WaitObject*& object);
WaitObjectResult OpenNamedSemaphore(const char* name, WaitObject*& object);
WaitObjectResult OpenNamedEvent(const char* name, WaitObject*& object);

/// Ends the use that one New or Open began. Nobody may wait for the object through it any more.
void CloseWaitObject(WaitObject& object);

/// Waits for the object and takes what it offers: ownership, a permit, the signal of an auto-reset event.
/// @param milliseconds  -1 for no limit; a lower value gives false
/// @returns true when the object was signalled; false when the time ran out, and also when its owner ended without
///          releasing the mutex, which then belongs to the caller all the same
bool WaitForObject(WaitObject& object, int milliseconds);

/// Gives up one ownership; fails for a thread that does not own the mutex.
int ReleaseMutexObject(WaitObject& object);

/// Adds permits, all or none.
/// @param count     1 or more
/// @param previous  receives the count before
int ReleaseSemaphoreObject(WaitObject& object, int count, int& previous);

int SetEventObject(WaitObject& object);
int ResetEventObject(WaitObject& object);
} // namespace Tesmo::Platform
