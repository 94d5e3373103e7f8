#include "WaitObjects.h"

#include "LinkedList.h"
#include "ThreadOwnership.h"

#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <utility>

namespace Tesmo::Platform
{
namespace
{
/// A thread that is blocked. It stands in the object's queue until it is served or its time has run out.
struct Waiter
{
    const ThreadIdentity thread = CallerIdentity();
    bool isServed = false;
    bool result = false;
    std::condition_variable served; // waits on the monotonic clock
    Waiter* previous = nullptr;
    Waiter* following = nullptr;
};
} // namespace

/// Built from a mutex and condition variables: sem_t has no maximum, and the thread sanitizer does not know
/// pthread_mutex_clocklock. A signal hands the object over to the blocked threads at once, first come first served, so
/// that no later call can take it from them.
struct WaitObject
{
    virtual ~WaitObject() = default;

    /// True when the thread need not wait. Called with the lock held, as Take and Taken are.
    virtual bool IsSignalled(ThreadIdentity thread) const = 0;

    /// Gives the thread what the object offers; false for a mutex whose owner ended without releasing it.
    virtual bool Take(ThreadIdentity thread) = 0;

    /// Called on the thread that took the object.
    virtual void Taken() {}

    /// True when the object may be deleted now.
    virtual bool Close()
    {
        return true;
    }

    /// Serves as many of the blocked threads as the state allows. Called with the lock held, after each change of it.
    /// (decision 42)
    void Serve()
    {
        while (Waiter* const waiter = waiters.First())
        {
            if (!IsSignalled(waiter->thread))
            {
                return;
            }
            waiters.Remove(*waiter);
            waiter->result = Take(waiter->thread);
            waiter->isServed = true;
            waiter->served.notify_one(); // under the lock: without it, the waiter could be gone already
        }
    }

    std::mutex lock;
    LinkedList<Waiter> waiters; ///< empty while another thread would find the object signalled
    std::string name;           ///< empty for an unnamed object
    int users = 1;              ///< of a named object, guarded by the names' lock
};

namespace
{
struct MutexObject : WaitObject, OwnedLock
{
    bool IsSignalled(ThreadIdentity thread) const override;
    bool Take(ThreadIdentity thread) override;
    void Taken() override;
    bool Close() override;
    bool Release();
    void Abandon() override;

    ThreadIdentity owner = 0;
    int depth = 0;
    bool abandoned = false;
    bool closed = false; ///< closed while another thread owned it: that thread's end deletes it
};

struct SemaphoreObject : WaitObject
{
    bool IsSignalled(ThreadIdentity) const override
    {
        return count > 0;
    }
    bool Take(ThreadIdentity) override
    {
        --count;
        return true;
    }

    int count = 0;
    int maximum = 1;
};

struct EventObject : WaitObject
{
    bool IsSignalled(ThreadIdentity) const override
    {
        return signalled;
    }
    bool Take(ThreadIdentity) override
    {
        signalled = manualReset;
        return true;
    }

    bool manualReset = false;
    bool signalled = false;
};

bool MutexObject::IsSignalled(ThreadIdentity thread) const
{
    return depth == 0 || owner == thread;
}

bool MutexObject::Take(ThreadIdentity thread)
{
    owner = thread;
    ++depth;
    return !std::exchange(abandoned, false);
}

void MutexObject::Taken()
{
    if (depth == 1)
    {
        AddOwnedLock(*this);
    }
}

bool MutexObject::Close()
{
    const std::lock_guard guard(lock);
    if (depth == 0)
    {
        return true;
    }
    if (owner == CallerIdentity())
    {
        RemoveOwnedLock(*this);
        return true;
    }
    closed = true;
    return false;
}

bool MutexObject::Release()
{
    const std::lock_guard guard(lock);
    if (depth == 0 || owner != CallerIdentity())
    {
        return false;
    }
    if (--depth == 0)
    {
        RemoveOwnedLock(*this);
        Serve();
    }
    return true;
}

/// The owner ends. A closed mutex is deleted, because nobody can reach it any more (decision 43).
void MutexObject::Abandon()
{
    std::unique_lock guard(lock);
    depth = 0;
    abandoned = true;
    Serve();
    if (closed)
    {
        guard.unlock();
        delete this;
    }
}

// decision 41
struct NamedObjects
{
    std::mutex lock;
    std::map<std::string, WaitObject*> objects;
};

/// Never destroyed: objects may be closed while the process ends.
NamedObjects& Names()
{
    static NamedObjects& names = *new NamedObjects;
    return names;
}

/// Looks for a named object. Existing: it is of the wanted kind; Failed: it is of another; Created: there is none.
template <class Kind>
WaitObjectResult Find(const NamedObjects& names, const std::string& name, WaitObject*& object)
{
    const auto found = names.objects.find(name);
    if (found == names.objects.end())
    {
        return WaitObjectResult::Created;
    }
    if (dynamic_cast<Kind*>(found->second) == nullptr)
    {
        return WaitObjectResult::Failed;
    }
    ++found->second->users;
    object = found->second;
    return WaitObjectResult::Existing;
}

template <class Kind>
WaitObjectResult Publish(std::unique_ptr<Kind> made, const char* name, WaitObject*& object)
{
    const std::string key = name;
    if (!key.empty())
    {
        if (key.size() > WaitNameLimit)
        {
            return WaitObjectResult::NameTooLong;
        }
        NamedObjects& names = Names();
        const std::lock_guard guard(names.lock);
        const WaitObjectResult result = Find<Kind>(names, key, object);
        if (result != WaitObjectResult::Created)
        {
            return result;
        }
        made->name = key;
        names.objects.emplace(key, made.get());
    }
    object = made.release();
    return WaitObjectResult::Created;
}

template <class Kind>
WaitObjectResult Open(const char* name, WaitObject*& object)
{
    const std::string key = name;
    if (key.size() > WaitNameLimit)
    {
        return WaitObjectResult::NameTooLong;
    }
    NamedObjects& names = Names();
    const std::lock_guard guard(names.lock);
    const WaitObjectResult result = Find<Kind>(names, key, object);
    return result == WaitObjectResult::Existing ? WaitObjectResult::Created : WaitObjectResult::Failed;
}

/// Takes the object out of the table when its last user leaves.
bool IsLastUser(WaitObject& object)
{
    if (object.name.empty())
    {
        return true;
    }
    NamedObjects& names = Names();
    const std::lock_guard guard(names.lock);
    if (--object.users > 0)
    {
        return false;
    }
    names.objects.erase(object.name);
    return true;
}

/// Waits until another thread hands the object over; false when the time ran out first.
bool Block(WaitObject& object, std::unique_lock<std::mutex>& guard, int milliseconds, bool& result)
{
    Waiter waiter;
    object.waiters.Add(waiter);
    const auto isServed = [&waiter] { return waiter.isServed; };
    if (milliseconds == -1)
    {
        waiter.served.wait(guard, isServed);
    }
    else if (!waiter.served.wait_for(guard, std::chrono::milliseconds(milliseconds), isServed))
    {
        object.waiters.Remove(waiter);
        return false;
    }
    result = waiter.result;
    return true;
}
} // namespace

WaitObjectResult NewMutex(bool initiallyOwned, const char* name, WaitObject*& object)
{
    auto mutex = std::make_unique<MutexObject>();
    if (initiallyOwned)
    {
        mutex->Take(CallerIdentity()); // before others can find it by its name
    }
    const WaitObjectResult result = Publish(std::move(mutex), name, object);
    if (result == WaitObjectResult::Created && initiallyOwned)
    {
        AddOwnedLock(static_cast<MutexObject&>(*object));
    }
    return result;
}

WaitObjectResult NewSemaphore(int initialCount, int maximumCount, const char* name, WaitObject*& object)
{
    if (initialCount < 0)
    {
        return WaitObjectResult::Failed;
    }
    auto semaphore = std::make_unique<SemaphoreObject>();
    semaphore->count = initialCount;
    semaphore->maximum = maximumCount;
    return Publish(std::move(semaphore), name, object);
}

WaitObjectResult NewEvent(bool manualReset, bool initialState, const char* name, WaitObject*& object)
{
    auto event = std::make_unique<EventObject>();
    event->manualReset = manualReset;
    event->signalled = initialState;
    return Publish(std::move(event), name, object);
}

WaitObjectResult OpenNamedMutex(const char* name, WaitObject*& object)
{
    return Open<MutexObject>(name, object);
}

WaitObjectResult OpenNamedSemaphore(const char* name, WaitObject*& object)
{
    return Open<SemaphoreObject>(name, object);
}

WaitObjectResult OpenNamedEvent(const char* name, WaitObject*& object)
{
    return Open<EventObject>(name, object);
}

void CloseWaitObject(WaitObject& object)
{
    if (IsLastUser(object) && object.Close())
    {
        delete &object;
    }
}

bool WaitForObject(WaitObject& object, int milliseconds)
{
    if (milliseconds < -1)
    {
        return false;
    }
    const ThreadIdentity caller = CallerIdentity();
    std::unique_lock guard(object.lock);
    bool result = false;
    if (object.IsSignalled(caller))
    {
        result = object.Take(caller);
    }
    else if (milliseconds == 0 || !Block(object, guard, milliseconds, result))
    {
        return false;
    }
    object.Taken();
    return result;
}

int ReleaseMutexObject(WaitObject& object)
{
    return static_cast<MutexObject&>(object).Release() ? 0 : EPERM;
}

int ReleaseSemaphoreObject(WaitObject& object, int count, int& previous)
{
    auto& semaphore = static_cast<SemaphoreObject&>(object);
    if (count < 1)
    {
        return EINVAL;
    }
    const std::lock_guard guard(semaphore.lock);
    if (count > semaphore.maximum - semaphore.count)
    {
        return WaitTooManyPosts;
    }
    previous = semaphore.count;
    semaphore.count += count;
    semaphore.Serve();
    return 0;
}

int SetEventObject(WaitObject& object)
{
    auto& event = static_cast<EventObject&>(object);
    const std::lock_guard guard(event.lock);
    event.signalled = true;
    event.Serve();
    return 0;
}

int ResetEventObject(WaitObject& object)
{
    auto& event = static_cast<EventObject&>(object);
    const std::lock_guard guard(event.lock);
    event.signalled = false;
    return 0;
}
} // namespace Tesmo::Platform
