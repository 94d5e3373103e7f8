#include "ThreadData.h"

#include "RunningThreads.h"

#include <Core/System/Threading/ThreadInterruptedException.h>

#include <utility>

namespace Tesmo::System::Threading
{
Thread::ThreadData::~ThreadData()
{
    if (Platform::ThreadSlot* const slot = handle; slot != nullptr)
    {
        Platform::CloseThread(*slot);
    }
}

void Thread::ThreadData::Interrupt()
{
    Platform::ThreadSlot* const slot = handle;
    if (Has(ThreadState::WaitSleepJoin) && slot != nullptr && Platform::TerminateThread(*slot, -1))
    {
        interrupted = false;
        throw ThreadInterruptedException(ThrowSite);
    }
    interrupted = true;
}

void Thread::ThreadData::RegisterCaller()
{
    static std::atomic<bool> isDone = false; // spares later calls the lock
    if (isDone)
    {
        return;
    }
    RunningThreads& running = RunningThreads::Instance();
    const std::lock_guard guard(running.mutex);
    if (running.records.empty())
    {
        const Sp<ThreadData> record(new ThreadData);
        record->id = Platform::CurrentThreadId();
        record->handle = Platform::CurrentThreadSlot();
        record->state = ThreadState::Running;
        running.records.emplace(record->id, record); // it stays: the process ends with its main thread
    }
    isDone = true;
}

Sp<Thread::ThreadData> Thread::ThreadData::OfCaller()
{
    RunningThreads& running = RunningThreads::Instance();
    const std::lock_guard guard(running.mutex);
    const auto found = running.records.find(Platform::CurrentThreadId());
    return found == running.records.end() ? Sp<ThreadData>() : found->second;
}

void Thread::ThreadData::Run(void* argument)
{
    const Sp<ThreadData> self = std::move(static_cast<ThreadData*>(argument)->self);
    RunningThreads& running = RunningThreads::Instance();
    Platform::ThreadSlot* const slot = Platform::CurrentThreadSlot();
    self->handle = slot;
    self->id = Platform::CurrentThreadId();
    {
        const std::lock_guard guard(running.mutex);
        running.records.insert_or_assign(self->id, self);
        if (!self->name.IsEmpty())
        {
            Platform::NameThread(*slot, self->name.Utf8().c_str());
        }
    }
    if (self->parameter == nullptr)
    {
        self->threadStart.Invoke();
    }
    else if (self->parameterizedStart != null)
    {
        self->parameterizedStart.Invoke(const_cast<Object&>(*self->parameter));
    }
    else
    {
        self->constParameterizedStart.Invoke(*self->parameter);
    }
    self->Set(ThreadState::Stopped);
    const std::lock_guard guard(running.mutex);
    running.records.erase(self->id);
}
} // namespace Tesmo::System::Threading
