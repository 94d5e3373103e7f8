#include <Tests/Support/CoreTest.h>

#include <Core/System/Threading/Lock.h>
#include <Core/System/Threading/Monitor.h>
#include <Core/System/TimeSpan.h>

#include <future>
#include <thread>

using Tesmo::null;
using namespace Tesmo::System;
using namespace Tesmo::System::Threading;

namespace
{
template <class Action>
auto OnAnotherThread(Action action)
{
    return std::async(std::launch::async, action).get();
}

bool IsFreeForOthers(const Object& target)
{
    return OnAnotherThread([&] { return Monitor::TryEnter(target) && (Monitor::Exit(target), true); });
}
} // namespace

TEST(MonitorTests, NestedLocksOfOneThreadLeaveNoEntryBehind)
{
    const Object target;
    const int entries = Monitor::EntryCount();
    {
        const Lock outer(target);
        {
            Lock inner(target);
            EXPECT_EQ(entries + 1, Monitor::EntryCount());
            EXPECT_TRUE(inner.IsLocked());
            inner.Release();
            EXPECT_FALSE(inner.IsLocked());
            EXPECT_THROW(inner.Release(), ArgumentNullException);
        }
        EXPECT_FALSE(IsFreeForOthers(target));
    }
    EXPECT_EQ(entries, Monitor::EntryCount());
    EXPECT_TRUE(IsFreeForOthers(target));
}

TEST(MonitorTests, AWaitThatRunsOutLeavesNoEntryBehind)
{
    const Object target;
    const int entries = Monitor::EntryCount();
    Monitor::Enter(target);
    EXPECT_FALSE(OnAnotherThread([&] { return Monitor::TryEnter(target, 5); }));
    EXPECT_FALSE(OnAnotherThread([&] { return Monitor::TryEnter(target, TimeSpan::FromMilliseconds(5)); }));
    bool lockTaken = true;
    EXPECT_TRUE(OnAnotherThread([&] { return Monitor::TryEnter(target, lockTaken); })); // the arguments were good
    EXPECT_FALSE(lockTaken);
    Monitor::Exit(target);
    EXPECT_EQ(entries, Monitor::EntryCount());
}

TEST(MonitorTests, ArgumentsDecideTheResultOfTheFormsWithLockTaken)
{
    const Object target;
    bool lockTaken = false;
    EXPECT_FALSE(Monitor::TryEnter(null, 0, lockTaken));
    EXPECT_TRUE(lockTaken);
    EXPECT_FALSE(Monitor::TryEnter(target, -2, lockTaken));
    EXPECT_FALSE(Monitor::TryEnter(target, static_cast<const TimeSpan&>(null), lockTaken));
    EXPECT_FALSE(Monitor::TryEnter(target, -2));
    EXPECT_FALSE(Monitor::TryEnter(null));
    EXPECT_THROW(Monitor::Enter(null), ArgumentNullException);
    EXPECT_THROW(Monitor::Exit(null), ArgumentNullException);
    EXPECT_THROW(const Lock lock(static_cast<const Object&>(null)), ArgumentNullException);

    lockTaken = false;
    EXPECT_TRUE(Monitor::TryEnter(target, TimeSpan::FromMilliseconds(-1), lockTaken));
    EXPECT_TRUE(lockTaken);
    Monitor::Exit(target);
}

TEST(MonitorTests, ExitByAnotherThreadThrowsAndKeepsTheLock)
{
    const Object target;
    EXPECT_NO_THROW(Monitor::Exit(target)); // no entry: nothing happens
    const Lock lock(target);
    OnAnotherThread([&] { EXPECT_THROW(Monitor::Exit(target), InvalidOperationException); });
    EXPECT_FALSE(IsFreeForOthers(target));
}

TEST(MonitorTests, AThreadThatEndsInsideLeavesOneFailureAndAFreeMonitor)
{
    const Object target;
    const int entries = Monitor::EntryCount();
    for (int round = 0; round < 20; ++round) // identifiers of threads are used again at once
    {
        OnAnotherThread(
            [&]
            {
                const Object released;
                Monitor::Enter(released);
                Monitor::Enter(target);
                Monitor::Enter(target);
                Monitor::Exit(released);
            });
        OnAnotherThread([&] { EXPECT_THROW(Monitor::Enter(target), InvalidOperationException); });
        EXPECT_EQ(entries, Monitor::EntryCount());
        EXPECT_TRUE(IsFreeForOthers(target));
    }
}

TEST(MonitorTests, ItKeepsThreadsApart)
{
    constexpr int Rounds = 5000;
    const Object targets[2];
    int counters[2] = {};
    const auto count = [&](std::size_t mine)
    {
        for (int round = 0; round < Rounds; ++round)
        {
            const Lock lock(targets[mine]);
            counters[mine]++;
        }
    };
    {
        const std::jthread threads[] = {std::jthread(count, 0), std::jthread(count, 1), std::jthread(count, 0)};
        count(1);
    }
    EXPECT_EQ(2 * Rounds, counters[0]);
    EXPECT_EQ(2 * Rounds, counters[1]);
}
