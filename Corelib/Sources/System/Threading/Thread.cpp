#include <Core/System/Threading/Thread.h>

#include "RunningThreads.h"
#include "WaitSleepJoin.h"
#include <System/NumberCast.h>

#include <Core/System/ArgumentException.h>
#include <Core/System/ArgumentNullException.h>
#include <Core/System/Checks.h>
#include <Core/System/NotSupportedException.h>
#include <Core/System/OutOfMemoryException.h>
#include <Core/System/Threading/ThreadAbortException.h>
#include <Core/System/Threading/ThreadStateException.h>
#include <Core/System/ThrowSite.h>
#include <Core/System/TimeSpan.h>

#include <cstdint>

namespace Tesmo::System::Threading
{
namespace
{
void CheckTime(int milliseconds)
{
    if (milliseconds < -1)
    {
        throw ArgumentException(ThrowSite);
    }
}

int Milliseconds(const TimeSpan& timeout)
{
    return NumberCast<int>(NotNull(timeout).TotalMilliseconds());
}

void CheckControl()
{
    if (!Platform::CanControlThreads())
    {
        throw NotSupportedException(ThrowSite);
    }
}

void CheckState(bool isAllowed)
{
    if (!isAllowed)
    {
        throw ThreadStateException(ThrowSite);
    }
}
} // namespace

Thread::Thread(const ThreadStart& start, int maxStackSize) : Thread(Sp<ThreadData>(new ThreadData))
{
    data->threadStart = NotEmpty(start);
    data->maxStackSize = maxStackSize;
}

Thread::Thread(const ParameterizedThreadStart& start, int maxStackSize) : Thread(Sp<ThreadData>(new ThreadData))
{
    data->parameterizedStart = NotEmpty(start);
    data->maxStackSize = maxStackSize;
}

Thread::Thread(const ConstParameterizedThreadStart& start, int maxStackSize) : Thread(Sp<ThreadData>(new ThreadData))
{
    data->constParameterizedStart = NotEmpty(start);
    data->maxStackSize = maxStackSize;
}

Thread::Thread(const Sp<ThreadData>& record) : data(record)
{
    ThreadData::RegisterCaller();
}

Thread::~Thread() = default;

void Thread::Start()
{
    StartNative(nullptr);
}

void Thread::Start(Object& parameter)
{
    StartNative(&parameter);
}

void Thread::Start(const Object& parameter)
{
    StartNative(IsNull(parameter) ? nullptr : &parameter);
}

void Thread::StartNative(const Object* parameter)
{
    CheckState(data->Clear(ThreadState::Unstarted));
    data->parameter = parameter;
    const int priority = data->priority; // read before the thread itself may set it
    data->self = data;
    long long id = 0;
    Platform::ThreadSlot* const slot = Platform::StartThread(ThreadData::Run, &*data, id, data->maxStackSize);
    if (slot == nullptr)
    {
        data->self.Reset(nullptr);
        data->Set(ThreadState::Unstarted);
        throw OutOfMemoryException(ThrowSite);
    }
    data->handle = slot;
    data->id = id;
    if (priority != Platform::NormalThreadPriority)
    {
        CheckState(Platform::SetThreadPriority(*slot, priority));
    }
}

void Thread::Join()
{
    CheckState(Join(-1));
}

bool Thread::Join(int milliseconds)
{
    CheckState(!data->Has(ThreadState::Unstarted));
    CheckTime(milliseconds);
    if (data->interrupted)
    {
        data->Interrupt();
    }
    Platform::ThreadSlot* const slot = data->handle;
    CheckState(slot != nullptr);
    data->Set(ThreadState::WaitSleepJoin);
    const bool ended = Platform::WaitThread(*slot, milliseconds);
    data->Clear(ThreadState::WaitSleepJoin);
    if (ended)
    {
        data->Set(ThreadState::Stopped);
    }
    return ended;
}

bool Thread::Join(const TimeSpan& timeout)
{
    return Join(Milliseconds(timeout));
}

void Thread::Sleep(int milliseconds)
{
    CheckTime(milliseconds);
    const WaitSleepJoin waiting;
    Platform::SleepThread(milliseconds);
}

void Thread::Sleep(const TimeSpan& timeout)
{
    Sleep(Milliseconds(timeout));
}

bool Thread::IsAlive() const
{
    return !data->Has(ThreadState::Unstarted) && !data->Has(ThreadState::Stopped) && !data->Has(ThreadState::Aborted);
}

ThreadState Thread::ThreadState() const
{
    return Threading::ThreadState(data->state);
}

String Thread::Name() const
{
    const std::lock_guard guard(RunningThreads::Instance().mutex);
    return data->name;
}

void Thread::Name(const String& value)
{
    NotNull(value);
    {
        const std::lock_guard guard(RunningThreads::Instance().mutex);
        data->name = value;
    }
    if (Platform::ThreadSlot* const slot = data->handle; slot != nullptr)
    {
        Platform::NameThread(*slot, value.Utf8().c_str());
    }
}

long long Thread::ManagedThreadId() const
{
    return data->id;
}

IntPtr Thread::Handle() const
{
    return IntPtr(reinterpret_cast<std::intptr_t>(data->handle.load()));
}

ThreadPriority Thread::Priority() const
{
    CheckState(!data->Has(ThreadState::Aborted) && IsAlive());
    Platform::ThreadSlot* const slot = data->handle;
    int priority = Platform::NormalThreadPriority;
    CheckState(slot != nullptr && Platform::GetThreadPriority(*slot, priority));
    return ThreadPriority(priority);
}

void Thread::Priority(const ThreadPriority& value)
{
    CheckState(!data->Has(ThreadState::Aborted));
    data->priority = NotNull(value).Value();
    if (Platform::ThreadSlot* const slot = data->handle; slot != nullptr)
    {
        CheckState(Platform::SetThreadPriority(*slot, data->priority));
    }
}

void Thread::Abort()
{
    CheckControl();
    if (!data->abortEnabled)
    {
        return;
    }
    CheckState(!data->Has(ThreadState::Suspended));
    data->Set(ThreadState::AbortRequested);
    Platform::ThreadSlot* const slot = data->handle;
    if (slot == nullptr || !Platform::TerminateThread(*slot, -1))
    {
        return;
    }
    data->Set(ThreadState::Aborted);
    data->Clear(ThreadState::AbortRequested);
    throw ThreadAbortException(ThrowSite);
}

void Thread::Interrupt()
{
    CheckControl();
    data->Interrupt();
}

void Thread::Suspend()
{
    CheckControl();
    Platform::ThreadSlot* const slot = data->handle;
    CheckState(IsAlive() && slot != nullptr);
    data->Set(ThreadState::SuspendRequested);
    Platform::SuspendThread(*slot);
    data->Set(ThreadState::Suspended);
    data->Clear(ThreadState::SuspendRequested);
}

void Thread::Resume()
{
    CheckControl();
    Platform::ThreadSlot* const slot = data->handle;
    CheckState(!data->Has(ThreadState::Unstarted) && !data->Has(ThreadState::Stopped) && slot != nullptr);
    CheckState(!data->Has(ThreadState::Suspended)); // on purpose: refuses just the state that Resume should end
    Platform::ResumeThread(*slot);
    data->Clear(ThreadState::Suspended);
}

Up<Thread> Thread::CurrentThread()
{
    ThreadData::RegisterCaller();
    Sp<ThreadData> record = ThreadData::OfCaller();
    if (record == null)
    {
        record.Reset(new ThreadData);
        record->id = Platform::CurrentThreadId();
        record->state = ThreadState::Running;
    }
    return Up<Thread>(new Thread(record));
}

void Thread::EnableAbort()
{
    CurrentThread()->data->abortEnabled = true;
}

void Thread::ResetAbort()
{
    CurrentThread()->data->abortEnabled = false;
}
} // namespace Tesmo::System::Threading
