#pragma once

#include <Core/System/Object.h>

namespace Tesmo::System
{
class TimeSpan;
}

namespace Tesmo::System::Threading
{
/// Gives any object a re-entrant lock that is kept beside it, in a table by address. An entry stands only while a
/// thread holds the lock or waits for it, so an object that is never locked costs nothing; an object that moves or
/// dies with its lock held leaves a stale entry. A thread that ends with the lock held abandons it: the next one that
/// tries to enter is told so by a failure, after which the lock is free. There is no Wait and no Pulse. Any thread may
/// call everything.
class Monitor
{
public:
    Monitor() = delete;

    /// Waits without limit for the lock. Each Enter needs an Exit on the same thread.
    /// @throws ArgumentNullException      target is null
    /// @throws InvalidOperationException  the owner ended inside, or 2147483647 threads and re-entries at once
    static void Enter(const Object& target);
    /// @param lockTaken  receives true once the lock is held
    static void Enter(const Object& target, bool& lockTaken);

    /// Takes the lock if that needs no wait.
    /// @returns true when the calling thread holds it now; false for null and, once, after its owner ended inside
    static bool TryEnter(const Object& target);
    /// @param milliseconds  limit of the wait, -1 for none; a value below gives false
    static bool TryEnter(const Object& target, int milliseconds);
    static bool TryEnter(const Object& target, const TimeSpan& timeout);

    /// These return only whether the arguments were good: a target and a time-out that are not null, and no less than
    /// -1 milliseconds. With bad arguments lockTaken is true all the same.
    /// @param lockTaken  receives whether the calling thread holds the lock now
    static bool TryEnter(const Object& target, bool& lockTaken);
    static bool TryEnter(const Object& target, int milliseconds, bool& lockTaken);
    static bool TryEnter(const Object& target, const TimeSpan& timeout, bool& lockTaken);

    /// Takes back one Enter. Without an entry for the target nothing happens.
    /// @throws ArgumentNullException      target is null
    /// @throws InvalidOperationException  another thread holds the lock, which stays as it was
    static void Exit(const Object& target);

    /// The entries in the table at this moment: objects that are locked or waited for.
    static int EntryCount();
};
} // namespace Tesmo::System::Threading
