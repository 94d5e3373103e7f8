#include "Platform/WaitObjects.h"

#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <utility>

namespace Tesmo::Platform
{
/// Built from a mutex and a condition variable: sem_t has no maximum, and the thread sanitizer does not know
/// pthread_mutex_clocklock. The condition variable waits on the monotonic clock.
struct WaitObject
{
    virtual ~WaitObject() = default;

    /// True when the calling thread need not wait. Called with the lock held, as Take is.
    virtual bool IsSignalled() const = 0;

    /// Takes what the object offers; false for a mutex whose owner ended without releasing it.
    virtual bool Take() = 0;

    /// True when the object may be deleted now.
    virtual bool Close()
    {
        return true;
    }

    std::mutex lock;
    std::condition_variable changed;
    std::string name; ///< empty for an unnamed object
    int users = 1;    ///< of a named object, guarded by the names' lock
};

namespace
{
struct MutexObject : WaitObject
{
    bool IsSignalled() const override;
    bool Take() override;
    bool Close() override;
    bool Release();
    bool Abandon();

    std::thread::id owner;
    int depth = 0;
    bool abandoned = false;
    bool closed = false;              ///< closed while another thread owned it: that thread's end deletes it
    MutexObject* previous = nullptr;  ///< in the list of its owner
    MutexObject* following = nullptr; ///< in the list of its owner
};

struct SemaphoreObject : WaitObject
{
    bool IsSignalled() const override
    {
        return count > 0;
    }
    bool Take() override
    {
        --count;
        return true;
    }

    int count = 0;
    int maximum = 1;
};

struct EventObject : WaitObject
{
    bool IsSignalled() const override
    {
        return signalled;
    }
    bool Take() override
    {
        signalled = manualReset;
        return true;
    }

    bool manualReset = false;
    bool signalled = false;
};

/// The mutexes that the calling thread owns. Its end abandons them, so that nobody waits for ever.
class OwnedMutexes
{
public:
    OwnedMutexes() = default;
    OwnedMutexes(const OwnedMutexes&) = delete;
    OwnedMutexes& operator=(const OwnedMutexes&) = delete;

    ~OwnedMutexes()
    {
        while (first != nullptr)
        {
            MutexObject& mutex = *first;
            Remove(mutex);
            if (mutex.Abandon())
            {
                delete &mutex;
            }
        }
    }

    void Add(MutexObject& mutex)
    {
        mutex.previous = nullptr;
        mutex.following = first;
        if (first != nullptr)
        {
            first->previous = &mutex;
        }
        first = &mutex;
    }

    void Remove(MutexObject& mutex)
    {
        (mutex.previous == nullptr ? first : mutex.previous->following) = mutex.following;
        if (mutex.following != nullptr)
        {
            mutex.following->previous = mutex.previous;
        }
    }

private:
    MutexObject* first = nullptr;
};

thread_local OwnedMutexes ownedMutexes;

bool MutexObject::IsSignalled() const
{
    return depth == 0 || owner == std::this_thread::get_id();
}

bool MutexObject::Take()
{
    if (depth++ == 0)
    {
        owner = std::this_thread::get_id();
        ownedMutexes.Add(*this);
    }
    return !std::exchange(abandoned, false);
}

bool MutexObject::Close()
{
    const std::lock_guard guard(lock);
    if (depth == 0)
    {
        return true;
    }
    if (owner == std::this_thread::get_id())
    {
        ownedMutexes.Remove(*this);
        return true;
    }
    closed = true;
    return false;
}

bool MutexObject::Release()
{
    const std::lock_guard guard(lock);
    if (depth == 0 || owner != std::this_thread::get_id())
    {
        return false;
    }
    if (--depth == 0)
    {
        owner = {};
        ownedMutexes.Remove(*this);
        changed.notify_one();
    }
    return true;
}

/// True when nobody can reach the mutex any more.
bool MutexObject::Abandon()
{
    const std::lock_guard guard(lock);
    owner = {};
    depth = 0;
    abandoned = true;
    changed.notify_one();
    return closed;
}

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

/// The named object of the wanted kind as Existing, Failed when it is of another kind, Created when there is none.
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
} // namespace

WaitObjectResult NewMutex(bool initiallyOwned, const char* name, WaitObject*& object)
{
    const WaitObjectResult result = Publish(std::make_unique<MutexObject>(), name, object);
    if (result == WaitObjectResult::Created && initiallyOwned)
    {
        WaitForObject(*object, -1);
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
    const auto ready = [&object] { return object.IsSignalled(); };
    std::unique_lock guard(object.lock);
    if (milliseconds == -1)
    {
        object.changed.wait(guard, ready);
    }
    else if (!ready() &&
             (milliseconds == 0 || !object.changed.wait_for(guard, std::chrono::milliseconds(milliseconds), ready)))
    {
        return false;
    }
    return object.Take();
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
    count == 1 ? semaphore.changed.notify_one() : semaphore.changed.notify_all();
    return 0;
}

int SetEventObject(WaitObject& object)
{
    auto& event = static_cast<EventObject&>(object);
    const std::lock_guard guard(event.lock);
    event.signalled = true;
    event.manualReset ? event.changed.notify_all() : event.changed.notify_one();
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
