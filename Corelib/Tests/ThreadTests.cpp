#include <Tests/Support/CoreTest.h>

#include <Core/System/Threading/Thread.h>

#include <Core/System/Threading/EventWaitHandle.h>
#include <Core/System/TimeSpan.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <thread>

using Tesmo::null;
using Tesmo::Up;
using namespace Tesmo::System;
using namespace Tesmo::System::Threading;

namespace
{
constexpr int Limit = 10000; // milliseconds; a wait that takes this long has failed

/// What a thread of a test runs, and where it waits.
class Work : public Object
{
public:
    void Run()
    {
        runs++;
    }
    void RunWith(Object& given)
    {
        parameter = &given;
    }
    void RunWithConst(const Object& given)
    {
        constParameter = &given;
    }
    void Hold()
    {
        running.Set();
        mayEnd.WaitOne();
        ended.Set();
    }
    void Rename()
    {
        const Up<Thread> self = Thread::CurrentThread();
        self->Name("renamed");
        id = self->ManagedThreadId();
        EXPECT_TRUE(self->IsAlive());
    }

    EventWaitHandle running{false, EventResetMode::ManualReset};
    EventWaitHandle mayEnd{false, EventResetMode::ManualReset};
    EventWaitHandle ended{false, EventResetMode::ManualReset};
    std::atomic<int> runs = 0;
    const Object* parameter = nullptr;
    const Object* constParameter = nullptr;
    long long id = 0;
};

/// The end of a thread that takes its time: it waits, and then names the thread.
struct SlowEnd
{
    ~SlowEnd()
    {
        if (work != nullptr)
        {
            work->Hold();
            thread->Name("late");
        }
    }

    Work* work = nullptr;
    Thread* thread = nullptr;
};

thread_local SlowEnd slowEnd;

bool Becomes(const Thread& thread, ThreadState::Constant flag)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(Limit);
    while (!thread.ThreadState().Has(flag) && std::chrono::steady_clock::now() < end)
    {
        std::this_thread::yield();
    }
    return thread.ThreadState().Has(flag);
}
} // namespace

TEST(ThreadTests, EachFormOfTheParameterReachesItsDelegateWhichMustBeThere)
{
    EXPECT_THROW(Thread(static_cast<const ThreadStart&>(null)), ArgumentNullException);
    EXPECT_THROW(Thread{ParameterizedThreadStart()}, ArgumentNullException);
    Work work;
    const Object readOnly;

    const auto run = [](const auto& start, auto&... parameter)
    {
        Thread thread{start};
        thread.Start(parameter...);
        thread.Join();
    };
    run(ThreadStart(work, &Work::Run));
    run(ThreadStart(work, &Work::Run), null);
    run(ParameterizedThreadStart(work, &Work::RunWith), work);
    run(ConstParameterizedThreadStart(work, &Work::RunWithConst), readOnly);

    EXPECT_EQ(2, work.runs);
    EXPECT_EQ(&work, work.parameter);
    EXPECT_EQ(&readOnly, work.constParameter);
}

TEST(ThreadTests, StateAndPriorityFollowTheThreadFromStartToEnd)
{
    Work work;
    Thread thread{ThreadStart(work, &Work::Hold)};

    EXPECT_EQ("Unstarted", thread.ThreadState().ToString());
    EXPECT_FALSE(thread.IsAlive());
    EXPECT_EQ(0, thread.ManagedThreadId());
    EXPECT_TRUE(thread.Handle() == IntPtr::Zero);
    EXPECT_THROW(thread.Join(0), ThreadStateException);
    EXPECT_THROW(thread.Priority(), ThreadStateException);
    EXPECT_NO_THROW(thread.Priority(ThreadPriority::Normal));

    thread.Start();
    ASSERT_TRUE(work.running.WaitOne(Limit));
    EXPECT_TRUE(thread.IsAlive());
    EXPECT_NE(0, thread.ManagedThreadId());
    EXPECT_FALSE(thread.Handle() == IntPtr::Zero);
    EXPECT_TRUE(Becomes(thread, ThreadState::WaitSleepJoin));
    EXPECT_THROW(thread.Start(), ThreadStateException);
    EXPECT_THROW(thread.Join(-2), ArgumentException);
    EXPECT_FALSE(thread.Join(0));
    EXPECT_FALSE(thread.Join(TimeSpan::FromMilliseconds(1)));
    EXPECT_TRUE(thread.Priority() == ThreadPriority::Normal);
    thread.Priority(ThreadPriority::Normal);
    thread.Priority(ThreadPriority::BelowNormal);
    EXPECT_TRUE(thread.Priority() == ThreadPriority::BelowNormal);

    work.mayEnd.Set();
    thread.Join();
    EXPECT_TRUE(thread.Join(0));
    EXPECT_EQ("Stopped", thread.ThreadState().ToString());
    EXPECT_FALSE(thread.IsAlive());
    EXPECT_THROW(thread.Priority(), ThreadStateException);
    EXPECT_NO_THROW(thread.Priority(ThreadPriority::Normal));
    EXPECT_THROW(thread.Start(), ThreadStateException);
}

TEST(ThreadTests, JoinCountsTheThreadLocalDestructorsAndKeepsItsLimit)
{
    Work work;
    std::unique_ptr<Thread> thread;
    class Ending : public Object
    {
    public:
        void Run()
        {
            slowEnd.work = work;
            slowEnd.thread = thread;
        }
        Work* work;
        Thread* thread;
    } ending;
    thread = std::make_unique<Thread>(ThreadStart(ending, &Ending::Run));
    ending.work = &work;
    ending.thread = thread.get();
    thread->Start();
    ASSERT_TRUE(work.running.WaitOne(Limit));
    std::jthread other([&] { EXPECT_FALSE(thread->Join(20)); });
    EXPECT_FALSE(thread->Join(0));
    other.join();
    work.mayEnd.Set();
    EXPECT_TRUE(thread->Join(Limit));
    EXPECT_EQ("late", thread->Name());
}

TEST(ThreadTests, SleepRefusesTimesBelowMinusOne)
{
    EXPECT_THROW(Thread::Sleep(-2), ArgumentException);
    EXPECT_NO_THROW(Thread::Sleep(0));
    const auto start = std::chrono::steady_clock::now();
    Thread::Sleep(20);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(20));
}

TEST(ThreadTests, CurrentThreadIsTheSameRecordInsideAndOutside)
{
    Work work;
    Thread thread{ThreadStart(work, &Work::Rename)};
    thread.Name("first");
    thread.Start();
    thread.Join();

    EXPECT_EQ(thread.ManagedThreadId(), work.id);
    EXPECT_EQ("renamed", thread.Name());
    EXPECT_EQ(Thread::CurrentThread()->ManagedThreadId(), Thread::CurrentThread()->ManagedThreadId());
}

TEST(ThreadTests, AThreadOfAnotherLibraryHasAStateToo)
{
    std::jthread(
        []
        {
            EXPECT_TRUE(Thread::CurrentThread()->IsAlive());
            EXPECT_THROW(Thread::CurrentThread()->Start(), ThreadStateException);
            Thread::Sleep(1);
        });
}

TEST(ThreadTests, AThreadOutlivesItsObject)
{
    Work work;
    Thread(ThreadStart(work, &Work::Hold)).Start();
    ASSERT_TRUE(work.running.WaitOne(Limit));
    work.mayEnd.Set();
    EXPECT_TRUE(work.ended.WaitOne(Limit));
}

TEST(ThreadTests, TheTableHolds2047ThreadsAndTakesBackTheirPlaces)
{
    Work work;
    std::vector<std::unique_ptr<Thread>> threads;
    const auto startOne = [&]
    {
        threads.push_back(std::make_unique<Thread>(ThreadStart(work, &Work::Hold), 1));
        threads.back()->Start();
    };
    for (int count = 0; count < 2047; ++count)
    {
        ASSERT_NO_THROW(startOne()) << count;
    }

    EXPECT_THROW(startOne(), OutOfMemoryException);
    Thread& refused = *threads.back();
    EXPECT_EQ("Unstarted", refused.ThreadState().ToString());

    work.mayEnd.Set();
    for (std::size_t index = 0; index < 2047; ++index)
    {
        threads[index]->Join();
    }
    threads.erase(threads.begin(), threads.begin() + 2047);
    EXPECT_NO_THROW(refused.Start());
    refused.Join();
}
