#pragma once

#include "LinkedList.h"

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

/// The locks of one class that the calling thread owns. When the thread ends, Abandon is called on each that is left;
/// one that a later thread_local destructor takes and keeps is missed.
template <class Owned>
class ThreadOwnership
{
public:
    static void Add(Owned& owned)
    {
        [[maybe_unused]] static thread_local const EndOfThread end{};
        list.Add(owned);
    }
    static void Remove(Owned& owned)
    {
        list.Remove(owned);
    }

private:
    struct EndOfThread
    {
        ~EndOfThread()
        {
            while (Owned* const owned = list.First())
            {
                list.Remove(*owned);
                owned->Abandon();
            }
        }
    };

    static constinit inline thread_local LinkedList<Owned> list{}; // usable to the thread's last instruction
};
} // namespace Tesmo::Platform
