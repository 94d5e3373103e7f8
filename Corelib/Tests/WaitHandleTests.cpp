#include <Tests/Support/CoreTest.h>

#include <Platform/WaitObjects.h>

#include <Core/System/Threading/AutoResetEvent.h>

#include <climits>

namespace Platform = Tesmo::Platform;
using namespace Tesmo::System::Threading;

TEST(SemaphoreTests, CountsAreCheckedAndReleaseGivesTheOneBefore)
{
    ExpectEachThrows<ArgumentException>({[&] { Semaphore(2, 1); }, [&] { Semaphore(0, 0); }});
    EXPECT_THROW(Semaphore(-1, 1), IO::IOException);
    EXPECT_NO_THROW(Semaphore(1, 1));
    Semaphore permits(0, 5);
    EXPECT_EQ(0, permits.Release());
    EXPECT_EQ(1, permits.Release(3));
    EXPECT_TRUE(permits.WaitOne(0));
    ExpectEachThrows<SemaphoreFullException>({[&] { permits.Release(3); }, [&] { permits.Release(INT_MAX); }});
    if (!OnWine()) // which takes 0 for a count
    {
        EXPECT_THROW(permits.Release(0), IO::IOException);
    }
    EXPECT_EQ(3, permits.Release(2));
    EXPECT_THROW(permits.Release(), SemaphoreFullException);
}

TEST(SemaphoreTests, EveryPermitLetsOneOfManyWaitersPassWhoseTimeMayRunOut)
{
    constexpr int Rounds = 2000;
    Semaphore permits(0, Rounds);
    std::atomic<int> taken = 0;
    const auto take = [&](int milliseconds)
    {
        while (taken < Rounds)
        {
            taken += permits.WaitOne(milliseconds) ? 1 : 0;
        }
    };
    {
        const std::jthread waiters[] = {std::jthread(take, 0), std::jthread(take, 1), std::jthread(take, 1)};
        for (int round = 0; round < Rounds; ++round)
        {
            permits.Release();
        }
    }
    EXPECT_EQ(Rounds, taken);
    EXPECT_FALSE(permits.WaitOne(0));
}

TEST(EventWaitHandleTests, AnEventStaysSetUntilItIsResetOrHasReleasedOneWaiter)
{
    EventWaitHandle manual(true, EventResetMode::ManualReset);
    EXPECT_TRUE(manual.WaitOne(0) && manual.WaitOne(TimeSpan::Zero) && manual.Reset());
    EXPECT_FALSE(manual.WaitOne(5));

    AutoResetEvent event(false);
    auto waiter = std::async(std::launch::async, [&] { return event.WaitOne(); });
    event.Set();
    EXPECT_TRUE(waiter.get());
    EXPECT_FALSE(event.WaitOne(0));
}

TEST(MutexTests, OnlyItsOwnerEntersAgainAndReleases)
{
    Mutex mutex(true);
    EXPECT_TRUE(mutex.WaitOne(0));
    mutex.ReleaseMutex();
    OnAnotherThread([&] { EXPECT_THROW(mutex.ReleaseMutex(), ApplicationException); });
    EXPECT_FALSE(OnAnotherThread([&] { return mutex.WaitOne(5); }));
    mutex.ReleaseMutex();
    EXPECT_THROW(mutex.ReleaseMutex(), ApplicationException);
}

TEST(MutexTests, AnOwnerThatEndsPassesTheMutexOnWithTheResultFalse)
{
    Mutex forgotten;
    Mutex mutex;
    OnAnotherThread([&] { EXPECT_TRUE(mutex.WaitOne() && mutex.WaitOne() && forgotten.WaitOne()); });
    forgotten.Close();
    EXPECT_FALSE(mutex.WaitOne());
    mutex.ReleaseMutex();
    EXPECT_THROW(mutex.ReleaseMutex(), ApplicationException);
    EXPECT_TRUE(mutex.WaitOne(0));
    OnAnotherThread([&] { mutex.Close(); }); // while it is owned
    EXPECT_THROW(mutex.ReleaseMutex(), IO::IOException);
}

TEST(WaitHandleTests, EachKindHasItsOwnFailureOnceItIsClosed)
{
    Mutex mutex;
    Semaphore semaphore(0, 1);
    AutoResetEvent event(true);
    Semaphore copy(semaphore);
    EXPECT_TRUE(copy.Equals(semaphore));
    for (WaitHandle* const handle : std::initializer_list<WaitHandle*>{&mutex, &semaphore, &event})
    {
        EXPECT_THROW(handle->WaitOne(-2), ArgumentException);
        handle->Close();
        handle->Close();
        EXPECT_THROW(handle->WaitOne(), AbandonedMutexException);
        EXPECT_FALSE(handle->Equals(*handle));
    }
    ExpectEachThrows<IO::IOException>({[&] { mutex.ReleaseMutex(); }, [&] { WaitHandle::SignalAndWait(copy, mutex); }});
    EXPECT_THROW(semaphore.Release(), InvalidOperationException);
    EXPECT_THROW(event.Set(), AbandonedMutexException);
    EXPECT_TRUE(copy.WaitOne(0)) << "the copy still has the native object";
}

TEST(WaitHandleTests, SignalAndWaitDoesBoth)
{
    AutoResetEvent first(false);
    Semaphore second(1, 1);
    EXPECT_TRUE(WaitHandle::SignalAndWait(first, second) && first.WaitOne(0));
    EXPECT_FALSE(WaitHandle::SignalAndWait(first, second, 0) || WaitHandle::SignalAndWait(first, second, TimeSpan()));
    Mutex mutex(true);
    EXPECT_TRUE(WaitHandle::SignalAndWait(mutex, first) && OnAnotherThread([&] { return mutex.WaitOne(0); }));
    const auto signalAndWait = [&](double milliseconds)
    { WaitHandle::SignalAndWait(first, second, TimeSpan::FromMilliseconds(milliseconds)); };
    second.Release();
    signalAndWait(INT_MAX);
    ExpectEachThrows<ArgumentOutOfRangeException>({[&] { signalAndWait(-1); }, [&] { signalAndWait(INT_MAX + 1.0); }});
}

TEST(WaitHandleTests, ObjectsAreSharedByACheckedNameAndTheirKind)
{
    const String name(U'n', 128);
    bool createdNew = false;
    Semaphore first(1, 3, name, createdNew);
    EXPECT_TRUE(createdNew);
    {
        Semaphore second(0, 9, name, createdNew);
        EXPECT_FALSE(createdNew);
        EXPECT_TRUE(second.WaitOne(0));
        EXPECT_EQ(0, Semaphore::OpenExisting(name).Release(3));
        EXPECT_THROW(second.Release(), SemaphoreFullException);
    }
    ExpectEachThrows<IO::IOException>({[&] { Mutex(false, name); }, [&] { EventWaitHandle::OpenExisting(name); }});
    first.Close();
    EXPECT_THROW(Semaphore::OpenExisting(name), IO::IOException);
    EventWaitHandle unnamed(false, EventResetMode::AutoReset, "", createdNew);
    EXPECT_TRUE(createdNew);

    ExpectEachThrows<ArgumentException>({[&] { Mutex(false, name + "n"); }, [&] { Mutex::OpenExisting(name + "n"); }});
    ExpectEachThrows<ArgumentNullException>({[&] { Mutex(false, static_cast<const String&>(null)); },
                                             [&] { Mutex::OpenExisting(""); }, [&] { Semaphore::OpenExisting(null); }});
}

TEST(WaitHandleTests, ANewNamedMutexIsOwnedBeforeOthersFindIt)
{
    const int rounds = OnWine() ? 2000 : 100000; // whose calls go to another process
    std::atomic<int> opened = 0;
    std::atomic<int> taken = 0;
    const auto open = [&]
    {
        while (opened < rounds)
        {
            Platform::WaitObject* found = nullptr;
            if (Platform::OpenNamedMutex("Zelkor mutex", found) == Platform::WaitObjectResult::Created)
            {
                opened++;
                taken += Platform::WaitForObject(*found, 0) ? 1 : 0;
                Platform::CloseWaitObject(*found);
            }
        }
    };
    const std::jthread others[] = {std::jthread(open), std::jthread(open)};
    while (opened < rounds)
    {
        Mutex(true, "Zelkor mutex").Close();
    }
    EXPECT_EQ(0, taken);
}
