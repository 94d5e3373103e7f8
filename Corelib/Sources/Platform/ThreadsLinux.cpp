#include "ThreadSlotUse.h"
#include "Threads.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <ctime>
#include <pthread.h>
#include <sys/resource.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace Tesmo::Platform
{
/// The mutex guards everything below it.
struct ThreadSlot : ThreadSlotUse
{
    ThreadRoutine routine = nullptr;
    void* argument = nullptr;
    pthread_mutex_t mutex = PTHREAD_MUTEX_INITIALIZER;
    pthread_cond_t changed = PTHREAD_COND_INITIALIZER;
    pthread_t nativeHandle = 0;
    pid_t id = 0; ///< 0 until the thread runs
    int normalNice = 0;
    int priority = NormalThreadPriority; ///< as it was last set
    bool running = false;                ///< false once the thread_local destructors have run
    bool released = false;               ///< joined or detached: nativeHandle means nothing any more
};

namespace
{
constexpr std::size_t MinimumStack = 256 * 1024; // bytes; a JSON text of 1000 levels needs 135 KB (decision 40)
constexpr int NiceStep = 5;
constexpr int HighestPriority = 4;
constexpr std::size_t NameSize = 16; // bytes with the closing zero (pthread_setname_np(3))

constinit std::array<ThreadSlot, ThreadSlotCount> slots{};
constinit std::atomic<bool> mainThreadMissing = true;
constinit std::atomic<int> mainNice = 0; // the program may have been started with another nice level than 0
constinit thread_local ThreadSlot* currentSlot = nullptr;

class SlotLock
{
public:
    explicit SlotLock(ThreadSlot& lockedSlot) : slot(lockedSlot)
    {
        pthread_mutex_lock(&slot.mutex);
    }
    ~SlotLock()
    {
        pthread_mutex_unlock(&slot.mutex);
    }
    SlotLock(const SlotLock&) = delete;
    SlotLock& operator=(const SlotLock&) = delete;

private:
    ThreadSlot& slot;
};

void RegisterMainThread()
{
    if (mainThreadMissing.exchange(false))
    {
        ThreadSlot& slot = slots[0];
        const SlotLock lock(slot);
        slot.useCount = 1;
        slot.nativeHandle = pthread_self();
        slot.id = gettid();
        slot.running = true;
        currentSlot = &slot;
        mainNice = getpriority(PRIO_PROCESS, 0);
        slot.normalNice = mainNice;
    }
}

/// Its destructor tells that the thread has ended (decision 38).
struct EndOfThread
{
    ~EndOfThread()
    {
        ThreadSlot& slot = *currentSlot;
        {
            const SlotLock lock(slot);
            slot.running = false;
            pthread_cond_broadcast(&slot.changed);
        }
        slot.Leave();
    }
};

/// A thread inherits the nice level of its starter. Without the right to raise it, that level is its normal one.
/// (decision 36)
int TakeNormalNice()
{
    return setpriority(PRIO_PROCESS, 0, mainNice) == 0 ? mainNice.load() : getpriority(PRIO_PROCESS, 0);
}

void* RunThread(void* parameter)
{
    [[maybe_unused]] static thread_local const EndOfThread end{}; // the first to be made is the last to be destroyed
    ThreadSlot& slot = *static_cast<ThreadSlot*>(parameter);
    currentSlot = &slot;
    {
        const SlotLock lock(slot);
        slot.normalNice = TakeNormalNice();
        slot.id = gettid();
        pthread_cond_broadcast(&slot.changed);
    }
    slot.routine(slot.argument);
    return nullptr;
}

int CreateNative(ThreadSlot& slot, int stackSize)
{
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    if (stackSize > 0)
    {
        pthread_attr_setstacksize(&attributes, std::max(static_cast<std::size_t>(stackSize), MinimumStack));
    }
    const int failure = pthread_create(&slot.nativeHandle, &attributes, RunThread, &slot);
    pthread_attr_destroy(&attributes);
    return failure;
}

int NiceOf(const ThreadSlot& slot, int priority)
{
    return std::clamp(slot.normalNice - (priority - NormalThreadPriority) * NiceStep, -20, 19);
}

timespec MonotonicDeadline(int milliseconds)
{
    timespec deadline{};
    clock_gettime(CLOCK_MONOTONIC, &deadline);
    const long nanoseconds = deadline.tv_nsec + milliseconds % 1000 * 1000000L;
    deadline.tv_sec += milliseconds / 1000 + nanoseconds / 1000000000L;
    deadline.tv_nsec = nanoseconds % 1000000000L;
    return deadline;
}

/// Waits with the slot locked; false when the time ran out first.
bool WaitForEnd(ThreadSlot& slot, int milliseconds)
{
    const timespec deadline = MonotonicDeadline(std::max(milliseconds, 0));
    while (slot.running)
    {
        const int failure = milliseconds < 0
                                ? pthread_cond_wait(&slot.changed, &slot.mutex)
                                : pthread_cond_clockwait(&slot.changed, &slot.mutex, CLOCK_MONOTONIC, &deadline);
        if (failure == ETIMEDOUT)
        {
            return !slot.running;
        }
    }
    return true;
}
} // namespace

ThreadSlot* StartThread(ThreadRoutine routine, void* argument, long long& id, int stackSize)
{
    RegisterMainThread();
    ThreadSlot* const slot = ClaimThreadSlot(slots);
    if (slot == nullptr)
    {
        return nullptr;
    }
    const SlotLock lock(*slot);
    slot->routine = routine;
    slot->argument = argument;
    slot->id = 0;
    slot->priority = NormalThreadPriority;
    slot->running = true;
    slot->released = false;
    if (CreateNative(*slot, stackSize) != 0)
    {
        slot->running = false;
        slot->Leave(2);
        return nullptr;
    }
    while (slot->id == 0) // only the new thread can tell its identifier
    {
        pthread_cond_wait(&slot->changed, &slot->mutex);
    }
    id = slot->id;
    return slot;
}

void CloseThread(ThreadSlot& slot)
{
    {
        const SlotLock lock(slot);
        if (!std::exchange(slot.released, true))
        {
            pthread_detach(slot.nativeHandle);
        }
    }
    slot.Leave();
}

ThreadSlot* CurrentThreadSlot()
{
    RegisterMainThread();
    return currentSlot;
}

long long CurrentThreadId()
{
    thread_local const long long id = gettid(); // kept, because every wait asks for it and gettid is a system call
    return id;
}

bool GetThreadPriority(ThreadSlot& slot, int& priority)
{
    const SlotLock lock(slot);
    if (!slot.running)
    {
        return false;
    }
    errno = 0;
    const int nice = getpriority(PRIO_PROCESS, static_cast<id_t>(slot.id));
    const int steps = (slot.normalNice - nice) / NiceStep;
    priority = nice == NiceOf(slot, slot.priority) ? slot.priority // several priorities may share the outermost levels
                                                   : std::clamp(steps + NormalThreadPriority, 0, HighestPriority);
    return errno == 0;
}

bool SetThreadPriority(ThreadSlot& slot, int priority)
{
    const SlotLock lock(slot);
    if (priority < 0 || !slot.running)
    {
        return priority >= 0;
    }
    const int known = priority <= HighestPriority ? priority : NormalThreadPriority;
    const auto thread = static_cast<id_t>(slot.id);
    const int nice = NiceOf(slot, known);
    // An unchanged level must not fail, and the service's unit refuses every setpriority.
    if (getpriority(PRIO_PROCESS, thread) != nice && setpriority(PRIO_PROCESS, thread, nice) != 0)
    {
        return false;
    }
    slot.priority = known;
    return true;
}

void NameThread(ThreadSlot& slot, const char* name)
{
    char shortName[NameSize] = {};
    std::strncpy(shortName, name, NameSize - 1);
    const SlotLock lock(slot);
    if (slot.running)
    {
        pthread_setname_np(slot.nativeHandle, shortName);
    }
}

bool CanControlThreads()
{
    return false;
}

bool SuspendThread(ThreadSlot&)
{
    return false;
}

bool ResumeThread(ThreadSlot&)
{
    return false;
}

bool TerminateThread(ThreadSlot&, int)
{
    return false;
}

void SleepThread(int milliseconds)
{
    if (milliseconds == 0)
    {
        std::this_thread::yield();
        return;
    }
    do
    {
        std::this_thread::sleep_for(milliseconds < 0 ? std::chrono::hours(24)
                                                     : std::chrono::milliseconds(milliseconds));
    } while (milliseconds < 0);
}

bool WaitThread(ThreadSlot& slot, int milliseconds)
{
    if (milliseconds < -1)
    {
        return false;
    }
    {
        const SlotLock lock(slot);
        if (!WaitForEnd(slot, milliseconds))
        {
            return false;
        }
        if (std::exchange(slot.released, true))
        {
            return true;
        }
    }
    pthread_join(slot.nativeHandle, nullptr); // returns at once, because its code has ended, and frees its stack
    return true;
}
} // namespace Tesmo::Platform
