#include "ThreadOwnership.h"

#include "LinkedList.h"

namespace Tesmo::Platform
{
namespace
{
constinit thread_local LinkedList<OwnedLock> owned{}; // usable to the thread's last instruction

struct EndOfThread
{
    ~EndOfThread()
    {
        while (OwnedLock* const lock = owned.First())
        {
            owned.Remove(*lock);
            lock->Abandon();
        }
    }
};
} // namespace

void AddOwnedLock(OwnedLock& lock)
{
    [[maybe_unused]] static thread_local const EndOfThread end{};
    owned.Add(lock);
}

void RemoveOwnedLock(OwnedLock& lock)
{
    owned.Remove(lock);
}
} // namespace Tesmo::Platform
