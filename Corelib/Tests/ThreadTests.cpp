#include <Tests/Support/CoreTest.h>

#include <Core/System/Threading/EventWaitHandle.h>

#include <memory>

using namespace Tesmo::System::Threading;

namespace
{
constexpr int Limit = 10000; // milliseconds; a wait that takes this long has failed

thread_local std::shared_ptr<void> atEnd; // its deleter runs as a thread_local destructor

/// What a thread of a test runs, and where it waits.
class Work : public Object
{
public:
    void Hold()
    {
        running.Set();
        mayEnd.WaitOne();
        ended.Set();
    }
    void EndSlowly()
    {
        atEnd = {nullptr, [this](void*) { Hold(), Thread::Sleep(0), thread->Name("late"); }};
    }

    EventWaitHandle running{false, EventResetMode::ManualReset};
    EventWaitHandle mayEnd{false, EventResetMode::ManualReset};
    EventWaitHandle ended{false, EventResetMode::ManualReset};
    Thread* thread = nullptr;
};

bool IsSeenWaiting(const Thread& thread)
{
    for (int turn = 0; turn < Limit * 100 && !thread.ThreadState().Has(ThreadState::WaitSleepJoin); ++turn)
    {
        std::this_thread::yield();
    }
    return thread.ThreadState().Has(ThreadState::WaitSleepJoin);
}
} // namespace

TEST(ThreadTests, StateAndPriorityFollowTheThreadFromStartToEnd)
{
    Work work;
    Thread thread{ThreadStart(work, &Work::Hold)};

    EXPECT_EQ("Unstarted", thread.ThreadState().ToString());
    EXPECT_FALSE(thread.IsAlive());
    EXPECT_EQ(0, thread.ManagedThreadId());
    EXPECT_TRUE(thread.Handle() == IntPtr::Zero);
    ExpectEachThrows<ThreadStateException>({[&] { thread.Join(0); }, [&] { thread.Priority(); }});
    EXPECT_NO_THROW(thread.Priority(ThreadPriority::Normal));

    thread.Start();
    ASSERT_TRUE(work.running.WaitOne(Limit));
    EXPECT_TRUE(thread.IsAlive());
    EXPECT_FALSE(thread.Handle() == IntPtr::Zero);
    EXPECT_TRUE(IsSeenWaiting(thread));
    EXPECT_THROW(thread.Start(), ThreadStateException);
    EXPECT_THROW(thread.Join(-2), ArgumentException);
    EXPECT_FALSE(thread.Join(TimeSpan::FromMilliseconds(1)));
    EXPECT_TRUE(thread.Priority() == ThreadPriority::Normal);
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
    Thread thread{ThreadStart(work, &Work::EndSlowly)};
    work.thread = &thread;
    Semaphore steps(0, 1);
    const auto join = [&] { return steps.Release() == 0 && work.running.WaitOne(Limit) && !thread.Join(20); };
    const std::jthread other([&] { EXPECT_TRUE(join() && steps.Release() == 0); });
    ASSERT_TRUE(steps.WaitOne(Limit)); // while a destructor waits, Windows lets no thread start or end
    thread.Start();
    ASSERT_TRUE(work.running.WaitOne(Limit));
    EXPECT_FALSE(thread.Join(0));
    EXPECT_TRUE(steps.WaitOne(Limit));
    work.mayEnd.Set();
    EXPECT_TRUE(thread.Join(Limit));
    EXPECT_EQ("late", thread.Name());

    static std::promise<void> mayEnd;
    mayEnd = {};
    Thread busy{ThreadStart(+[] { mayEnd.get_future().wait(); })}; // in no wait of the library
    busy.Start();
    const std::jthread joining([&] { EXPECT_TRUE(busy.Join(Limit)); });
    EXPECT_TRUE(IsSeenWaiting(busy));
    mayEnd.set_value();
}

TEST(ThreadTests, SleepTakesItsTimeAndRefusesTimesBelowMinusOne)
{
    EXPECT_THROW(Thread::Sleep(-2), ArgumentException);
    EXPECT_THROW(Thread::Sleep(TimeSpan(-20000)), ArgumentException);
    const auto start = std::chrono::steady_clock::now();
    Thread::Sleep(20);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(20));
}

TEST(ThreadTests, CurrentThreadIsTheSameRecordInsideAndOutside)
{
    static long long inside;
    Thread thread{ThreadStart(+[]
                              {
                                  const Up<Thread> self = Thread::CurrentThread();
                                  EXPECT_EQ("first", self->Name());
                                  self->Name("renamed");
                                  inside = self->ManagedThreadId();
                              })};
    EXPECT_EQ("Running", Thread::CurrentThread()->ThreadState().ToString().Utf8());
    EXPECT_TRUE(Thread::CurrentThread()->Priority() == ThreadPriority::Normal);
    thread.Name("first");
    thread.Start();
    thread.Join();

    EXPECT_EQ(thread.ManagedThreadId(), inside);
    EXPECT_NE(0, inside);
    EXPECT_EQ("renamed", thread.Name());
    const Up<Thread> foreign = OnAnotherThread([] { return Thread::CurrentThread(); });
    EXPECT_TRUE(foreign->IsAlive()) << "a thread of another library has a state, too";
    EXPECT_THROW(foreign->Start(), ThreadStateException);
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
    const int places = OnWine() ? 800 : 2047; // its stacks take 1 MB at least, of which an address space holds 955
    Work work;
    std::vector<std::unique_ptr<Thread>> threads;
    for (int count = 0; count < places; ++count)
    {
        threads.push_back(std::make_unique<Thread>(ThreadStart(work, &Work::Hold), 1));
        ASSERT_NO_THROW(threads.back()->Start()) << count;
    }
    Thread refused(ThreadStart(work, &Work::Hold), 1);
    if (!OnWine())
    {
        EXPECT_THROW(refused.Start(), OutOfMemoryException);
    }
    EXPECT_EQ("Unstarted", refused.ThreadState().ToString());

    work.mayEnd.Set();
    for (const auto& thread : threads)
    {
        thread->Join();
    }
    threads.clear();
    EXPECT_NO_THROW(refused.Start());
    refused.Join();
}
