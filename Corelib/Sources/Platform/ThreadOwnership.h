#pragma once

#include <atomic>
#include <cstdint>

namespace Tesmo::Platform
{
/// Means one thread for ever; identifiers of the system and of the standard library are reused after a thread's end.
/// 0 is no thread.
using ThreadIdentity = std::uint64_t;

inline ThreadIdentity CallerIdentity()
{
    static constinit std::atomic<ThreadIdentity> last = 0;
    static constinit thread_local ThreadIdentity identity = 0;
    if (identity == 0)
    {
        identity = ++last;
    }
    return identity;
}

/// A lock as the thread that owns it knows it.
struct OwnedLock
{
    /// Called on the owner when it ends and has not released the lock.
    virtual void Abandon() = 0;

    OwnedLock* previous = nullptr;  ///< in the list of the owner, which that thread alone touches
    OwnedLock* following = nullptr; ///< likewise

protected:
    OwnedLock() = default;
    ~OwnedLock() = default;
    OwnedLock(const OwnedLock&) = default;
    OwnedLock& operator=(const OwnedLock&) = default;
};

/// Adds the lock to those that the calling thread owns. One that is still there when the thread ends is abandoned,
/// unless a late thread_local destructor has taken it.
void AddOwnedLock(OwnedLock& lock);

/// Takes out a lock that the calling thread has added.
void RemoveOwnedLock(OwnedLock& lock);
} // namespace Tesmo::Platform
