#include <Core/System/Threading/Monitor.h>

#include <Platform/ThreadOwnership.h>

#include <Core/System/ArgumentNullException.h>
#include <Core/System/Checks.h>
#include <Core/System/InvalidOperationException.h>
#include <Core/System/ThrowSite.h>
#include <Core/System/TimeSpan.h>

#include <array>
#include <chrono>
#include <climits>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <utility>

namespace Tesmo::System::Threading
{
namespace
{
/// One lock that is held or waited for. Everything in it is guarded by the lock of its shard.
struct MonitorData : Platform::OwnedLock
{
    const Object* target = nullptr;
    int referenceCount = 0; ///< threads that hold or wait, re-entries included
    int depth = 0;          ///< entries of the owner, 0 while nobody owns the lock
    bool abandoned = false; ///< the owner ended inside; its reference stays until a caller is told
    Platform::ThreadIdentity owner = 0;
    std::condition_variable released;
    MonitorData* next = nullptr; ///< in the list of the shard, or among its spare ones

    void Abandon() override;
};

/// A part of the table with a lock of its own, so that threads with different objects seldom meet. Records are reused
/// and never freed, because threads may still lock while the process ends: there are as many as were ever in use at
/// once.
struct alignas(64) Shard // a cache line of its own (decision 48)
{
    std::mutex lock;
    MonitorData* used = nullptr;
    MonitorData* spare = nullptr;
};

constexpr std::size_t ShardCount = 64;

/// Made at the first use and never destroyed.
std::array<Shard, ShardCount>& Shards()
{
    static auto* const shards = new std::array<Shard, ShardCount>;
    return *shards;
}

Shard& ShardOf(const Object& target)
{
    const auto address = reinterpret_cast<std::uintptr_t>(&target);
    return Shards()[(address >> 4 ^ address >> 12) % ShardCount]; // the heap aligns to 16 bytes
}

void MonitorData::Abandon()
{
    const std::lock_guard guard(ShardOf(*target).lock);
    referenceCount -= depth - 1;
    depth = 0;
    abandoned = true;
    released.notify_one();
}

/// The link that leads to the target's record, or to the end of the list.
MonitorData*& Find(Shard& shard, const Object& target)
{
    MonitorData** link = &shard.used;
    while (*link != nullptr && (*link)->target != &target)
    {
        link = &(*link)->next;
    }
    return *link;
}

MonitorData& FindOrAdd(Shard& shard, const Object& target)
{
    MonitorData* data = Find(shard, target);
    if (data == nullptr)
    {
        data = shard.spare;
        if (data == nullptr)
        {
            data = new MonitorData;
        }
        else
        {
            shard.spare = data->next;
        }
        data->target = &target;
        data->next = shard.used;
        shard.used = data;
    }
    return *data;
}

/// Gives up one reference to the record that link leads to; the last one takes it out of the table.
void Leave(Shard& shard, MonitorData*& link)
{
    MonitorData& data = *link;
    if (--data.referenceCount == 0)
    {
        link = data.next;
        data.next = shard.spare;
        shard.spare = &data;
    }
}

bool Wait(std::unique_lock<std::mutex>& guard, MonitorData& data, double milliseconds)
{
    const auto free = [&data] { return data.depth == 0; };
    const std::chrono::duration<double, std::milli> limit(milliseconds);
    const auto longest = std::chrono::hours(24 * 365 * 100); // a longer wait would overflow the clock's number
    if (milliseconds <= -1 || limit > longest)
    {
        data.released.wait(guard, free);
        return true;
    }
    return free() || (milliseconds > 0 &&
                      data.released.wait_for(guard, std::chrono::duration_cast<std::chrono::nanoseconds>(limit), free));
}

/// Gives up the reference of an owner that ended inside; false when there was none. The lock is free (decision 47).
bool TakeBackAbandoned(MonitorData& data)
{
    if (!std::exchange(data.abandoned, false))
    {
        return false;
    }
    --data.referenceCount;
    data.released.notify_one();
    return true;
}

/// False when the time ran out, and once after an owner has ended inside.
/// @param milliseconds  -1 for no limit
bool Take(const Object& target, double milliseconds)
{
    Shard& shard = ShardOf(target);
    std::unique_lock guard(shard.lock);
    MonitorData& data = FindOrAdd(shard, target);
    if (data.referenceCount == INT_MAX)
    {
        throw InvalidOperationException(ThrowSite);
    }
    ++data.referenceCount;
    const Platform::ThreadIdentity caller = Platform::CallerIdentity();
    const bool isOwner = data.depth > 0 && data.owner == caller;
    if (!isOwner && (!Wait(guard, data, milliseconds) || TakeBackAbandoned(data)))
    {
        Leave(shard, Find(shard, target));
        return false;
    }
    data.owner = caller;
    if (++data.depth == 1)
    {
        Platform::AddOwnedLock(data);
    }
    return true;
}
} // namespace

void Monitor::Enter(const Object& target)
{
    bool lockTaken = false;
    Enter(target, lockTaken);
}

void Monitor::Enter(const Object& target, bool& lockTaken)
{
    NotNull(target);
    lockTaken = Take(target, -1);
    if (!lockTaken)
    {
        throw InvalidOperationException(ThrowSite);
    }
}

bool Monitor::TryEnter(const Object& target)
{
    return TryEnter(target, 0);
}

bool Monitor::TryEnter(const Object& target, int milliseconds)
{
    bool lockTaken = false;
    return TryEnter(target, milliseconds, lockTaken) && lockTaken;
}

bool Monitor::TryEnter(const Object& target, const TimeSpan& timeout)
{
    bool lockTaken = false;
    return TryEnter(target, timeout, lockTaken) && lockTaken;
}

bool Monitor::TryEnter(const Object& target, bool& lockTaken)
{
    return TryEnter(target, 0, lockTaken);
}

bool Monitor::TryEnter(const Object& target, int milliseconds, bool& lockTaken)
{
    lockTaken = true;
    if (IsNull(target) || milliseconds < -1)
    {
        return false;
    }
    lockTaken = Take(target, milliseconds);
    return true;
}

bool Monitor::TryEnter(const Object& target, const TimeSpan& timeout, bool& lockTaken)
{
    lockTaken = true;
    if (IsNull(target) || IsNull(timeout) || timeout.TotalMilliseconds() < -1)
    {
        return false;
    }
    lockTaken = Take(target, timeout.TotalMilliseconds());
    return true;
}

void Monitor::Exit(const Object& target)
{
    NotNull(target);
    Shard& shard = ShardOf(target);
    const std::lock_guard guard(shard.lock);
    MonitorData*& link = Find(shard, target);
    if (link == nullptr)
    {
        return;
    }
    if (link->depth == 0 || link->owner != Platform::CallerIdentity())
    {
        throw InvalidOperationException(ThrowSite);
    }
    if (--link->depth == 0)
    {
        Platform::RemoveOwnedLock(*link);
        if (link->referenceCount > 1)
        {
            link->released.notify_one();
        }
    }
    Leave(shard, link);
}

int Monitor::EntryCount()
{
    int count = 0;
    for (Shard& shard : Shards())
    {
        const std::lock_guard guard(shard.lock);
        for (const MonitorData* data = shard.used; data != nullptr; data = data->next)
        {
            ++count;
        }
    }
    return count;
}
} // namespace Tesmo::System::Threading
