#include "ThreadOwnership.h"

#include "LinkedList.h"

#include <windows.h>

#include <memory>

namespace Tesmo::Platform
{
namespace
{
using OwnedLocks = LinkedList<OwnedLock>;

void WINAPI AbandonAll(void* value)
{
    const std::unique_ptr<OwnedLocks> owned(static_cast<OwnedLocks*>(value));
    while (OwnedLock* const lock = owned->First())
    {
        owned->Remove(*lock);
        lock->Abandon();
    }
}

/// The system keeps the list, because MinGW frees a thread's thread_local objects before it runs their destructors.
OwnedLocks& OwnedByCaller()
{
    static const DWORD index = FlsAlloc(AbandonAll);
    auto* owned = static_cast<OwnedLocks*>(FlsGetValue(index));
    if (owned == nullptr)
    {
        owned = new OwnedLocks;
        FlsSetValue(index, owned);
    }
    return *owned;
}
} // namespace

void AddOwnedLock(OwnedLock& lock)
{
    OwnedByCaller().Add(lock);
}

void RemoveOwnedLock(OwnedLock& lock)
{
    OwnedByCaller().Remove(lock);
}
} // namespace Tesmo::Platform
