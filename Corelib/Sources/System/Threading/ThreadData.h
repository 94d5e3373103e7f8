#pragma once

#include <Platform/Threads.h>

#include <Core/System/Threading/Thread.h>

#include <atomic>

namespace Tesmo::System::Threading
{
/// The state of one thread. It lives as long as an object or the thread itself refers to it, and gives the native slot
/// back at its end. The state word is a set of bits that any thread may set or clear.
class Thread::ThreadData : public Object
{
public:
    ThreadData() = default;
    ~ThreadData() override;

    bool Has(Threading::ThreadState::Constant flag) const
    {
        return (state & flag) != 0;
    }
    /// @returns whether it was set before
    bool Set(Threading::ThreadState::Constant flag)
    {
        return (state.fetch_or(flag) & flag) != 0;
    }
    /// @returns whether it was set before
    bool Clear(Threading::ThreadState::Constant flag)
    {
        return (state.fetch_and(~flag) & flag) != 0;
    }

    /// Does what Thread::Interrupt asks for.
    void Interrupt();

    /// Records the first thread that calls it as the main thread.
    static void RegisterCaller();

    /// The record of the calling thread; empty for a thread that the library did not start.
    static Sp<ThreadData> OfCaller();

    /// What a started thread runs. The argument is the record, whose self the thread takes over.
    static void Run(void* argument);

    Sp<ThreadData> self; ///< keeps the record from the start until its thread runs
    std::atomic<Platform::ThreadSlot*> handle = nullptr;
    std::atomic<long long> id = 0;
    String name; ///< guarded by the mutex of the running threads
    std::atomic<int> state = Threading::ThreadState::Unstarted;
    ThreadStart threadStart;
    ParameterizedThreadStart parameterizedStart;
    ConstParameterizedThreadStart constParameterizedStart;
    const Object* parameter = nullptr;
    int maxStackSize = 0;
    std::atomic<bool> abortEnabled = false;
    std::atomic<bool> interrupted = false;
    std::atomic<int> priority = Platform::NormalThreadPriority;
};
} // namespace Tesmo::System::Threading
