#include <Tests/Support/CoreTest.h>

#include <Core/System/Threading/Monitor.h>

using namespace Tesmo::System::Threading;

namespace
{
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
        OnAnotherThread([&] { EXPECT_THROW(Monitor::Exit(target), InvalidOperationException); });
        EXPECT_FALSE(IsFreeForOthers(target));
    }
    EXPECT_EQ(entries, Monitor::EntryCount());
    EXPECT_TRUE(IsFreeForOthers(target));
    EXPECT_NO_THROW(Monitor::Exit(target)); // no entry: nothing happens
}

TEST(MonitorTests, ArgumentsAndNotTheLockDecideTheResultOfTheFormsWithLockTaken)
{
    const Object target;
    const int entries = Monitor::EntryCount();
    bool lockTaken = false;
    EXPECT_FALSE(Monitor::TryEnter(null, 0, lockTaken));
    EXPECT_TRUE(lockTaken);
    EXPECT_FALSE(Monitor::TryEnter(target, -2, lockTaken));
    lockTaken = false;
    EXPECT_FALSE(Monitor::TryEnter(target, static_cast<const TimeSpan&>(null), lockTaken));
    EXPECT_TRUE(lockTaken);
    EXPECT_FALSE(Monitor::TryEnter(target, -2) || Monitor::TryEnter(null));
    ExpectEachThrows<ArgumentNullException>({[&] { Monitor::Enter(null); }, [&] { Monitor::Exit(null); },
                                             [&] { const Lock lock(static_cast<const Object&>(null)); }});

    lockTaken = false;
    EXPECT_TRUE(Monitor::TryEnter(target, TimeSpan::FromMilliseconds(-1), lockTaken) && lockTaken);
    EXPECT_FALSE(OnAnotherThread([&] { return Monitor::TryEnter(target, 5); }));
    EXPECT_FALSE(OnAnotherThread([&] { return Monitor::TryEnter(target, TimeSpan::FromMilliseconds(5)); }));
    EXPECT_TRUE(Monitor::TryEnter(target, TimeSpan::FromMilliseconds(5)));
    Monitor::Exit(target);
    EXPECT_TRUE(OnAnotherThread([&] { return Monitor::TryEnter(target, lockTaken); }));
    EXPECT_FALSE(lockTaken);
    Monitor::Exit(target);
    EXPECT_EQ(entries, Monitor::EntryCount()) << "a wait that runs out leaves none";
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
