#include <Tests/Support/CoreTest.h>

#include <Core/System/Threading/AutoResetEvent.h>
#include <Core/System/Threading/Monitor.h>

#include <fstream>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>

using namespace Tesmo::System::Threading;

namespace
{
void (*const nothing)() = [] {};

long MappedPages()
{
    long pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    return pages;
}

/// True while the thread sleeps in the kernel.
bool Sleeps(int thread)
{
    std::string word;
    std::ifstream stat("/proc/self/task/" + std::to_string(thread) + "/stat");
    return stat.ignore(1000, ')') >> word && word == "S";
}

/// A thread that waits; it is blocked when this returns, or its wait has run out.
std::future<bool> BlockIn(std::function<bool()> wait)
{
    const auto id = std::make_shared<std::atomic<int>>(0);
    auto waiter = std::async(std::launch::async,
                             [wait, id]
                             {
                                 *id = gettid();
                                 return wait();
                             });
    while ((*id == 0 || !Sleeps(*id)) && waiter.wait_for(std::chrono::seconds(0)) != std::future_status::ready)
    {
        std::this_thread::yield();
    }
    return waiter;
}

int firstNice = 0;

void TakeEachPriorityDownwards()
{
    const Up<Thread> self = Thread::CurrentThread();
    firstNice = getpriority(PRIO_PROCESS, 0);
    EXPECT_TRUE(self->Priority() == ThreadPriority::Normal);
    for (const int value : {ThreadPriority::Normal, ThreadPriority::BelowNormal, ThreadPriority::Lowest})
    {
        self->Priority(ThreadPriority(value));
        EXPECT_EQ(value, self->Priority().Value());
    }
    EXPECT_THROW(self->Priority(ThreadPriority(-1)), ThreadStateException);
    EXPECT_TRUE(self->Priority() == ThreadPriority::Lowest);
}

void StartAnotherAsLowest()
{
    Thread::CurrentThread()->Priority(ThreadPriority::Lowest);
    Thread child{ThreadStart(&TakeEachPriorityDownwards)};
    child.Start();
    child.Join();
}
} // namespace

TEST(ThreadLinuxTests, ControlByForceIsNotSupported)
{
    Thread thread{ThreadStart(nothing)};
    ExpectEachThrows<NotSupportedException>(
        {[&] { thread.Abort(); }, [&] { thread.Interrupt(); }, [&] { thread.Suspend(); }, [&] { thread.Resume(); }});
}

TEST(ThreadLinuxTests, EachFormTakesItsParameterAndTheStackItIsGivenButNoLessThan256KiB)
{
    static std::size_t size;
    static const Object* given;
    static void (*const measure)(const Object&) = [](const Object& parameter)
    {
        pthread_attr_t attributes;
        ASSERT_EQ(0, pthread_getattr_np(pthread_self(), &attributes));
        pthread_attr_getstacksize(&attributes, &size);
        pthread_attr_destroy(&attributes);
        given = &parameter;
    };
    Object object;
    const Object readOnly;
    const auto sizeOf = [&](auto&& thread, auto&... parameter)
    {
        thread.Start(parameter...);
        thread.Join();
        return size >> 18; // in units of 256 KiB
    };
    // in ascending order, since the C library hands out stacks again; the thread sanitizer has a minimum of its own
    const ThreadStart plain(+[] { measure(null); });
    const std::size_t least = sizeOf(Thread(plain, 1));
    EXPECT_EQ(least, sizeOf(Thread(plain, 1 << 18)));
    EXPECT_EQ(4U, sizeOf(Thread(plain, 4 << 18), null));
    EXPECT_EQ(5U, sizeOf(Thread(ParameterizedThreadStart(+[](Object& it) { measure(it); }), 5 << 18), object));
    EXPECT_EQ(&object, given);
    EXPECT_EQ(6U, sizeOf(Thread(ConstParameterizedThreadStart(measure), 6 << 18), readOnly));
    EXPECT_EQ(&readOnly, given);
    EXPECT_THROW(Thread(static_cast<const ThreadStart&>(null)), ArgumentNullException);
    EXPECT_THROW(Thread{ParameterizedThreadStart()}, ArgumentNullException);
}

TEST(ThreadLinuxTests, SystemToolsSeeTheNameCutTo15Bytes)
{
    static std::string shown;
    Thread thread{ThreadStart(+[] { std::getline(std::ifstream("/proc/thread-self/comm"), shown); })};
    thread.Name("MessageParser of a client");
    thread.Start();
    thread.Join();
    EXPECT_EQ("MessageParser o", shown);
}

TEST(ThreadLinuxTests, AThreadStartsAsNormalAndKeepsEachPriorityWhoeverStartsIt)
{
    const int normal = getpriority(PRIO_PROCESS, 0);
    for (const bool mayRaise : {geteuid() == 0, false})
    {
        std::jthread(
            [=]
            {
                static_cast<void>(mayRaise || syscall(SYS_setresuid, -1, 65534, -1)); // of this thread alone
                Thread starter{ThreadStart(&StartAnotherAsLowest)};
                starter.Start();
                starter.Join();
            })
            .join();
        EXPECT_EQ(mayRaise ? normal : std::min(normal + 10, 19), firstNice);
    }
}

TEST(ThreadLinuxTests, APriorityThatIsThereAlreadyNeedsNoRight)
{
    std::jthread(
        [] // of this thread alone, and of those that it starts: as under a service manager's filter of system calls
        {
            sock_filter steps[] = {BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
                                   BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_setpriority, 0, 1),
                                   BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EPERM),
                                   BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW)};
            const sock_fprog filter = {std::size(steps), steps};
            ASSERT_EQ(0, prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0));
            ASSERT_EQ(0, prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter));
            ASSERT_EQ(-1, setpriority(PRIO_PROCESS, 0, 19));
            Thread thread{ThreadStart(+[] { Thread::CurrentThread()->Priority(ThreadPriority::Normal); })};
            thread.Start();
            thread.Join();
        })
        .join();
}

TEST(ThreadLinuxTests, WhoeverIsBlockedAtASignalGetsItWhateverComesNext)
{
    AutoResetEvent one(false);
    EventWaitHandle all(false, EventResetMode::ManualReset);
    Semaphore permits(0, 2);
    Mutex mutex(true);
    struct Row
    {
        const char* name;
        WaitHandle& handle;
        int waiters;
        std::function<void()> signal;
    };
    const Row rows[] = {{"each Set counts", one, 2, [&] { one.Set(), one.Set(); }},
                        {"a Reset takes no Set back", one, 1, [&] { one.Set(), one.Reset(); }},
                        {"a Reset closes behind those who waited", all, 3, [&] { all.Set(), all.Reset(); }},
                        {"permits", permits, 2, [&] { permits.Release(2); }},
                        {"ownership", mutex, 1, [&] { mutex.ReleaseMutex(); }}};
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.name);
        std::vector<std::future<bool>> waiters;
        std::generate_n(std::back_inserter(waiters), row.waiters,
                        [&] { return BlockIn([&row] { return row.handle.WaitOne(5000); }); });
        row.signal();
        EXPECT_FALSE(row.handle.WaitOne(0)); // nobody overtakes
        EXPECT_TRUE(std::all_of(waiters.begin(), waiters.end(), [](auto& waiter) { return waiter.get(); }));
    }
    Mutex left;
    const Object target;
    std::future<bool> heir;
    std::jthread([&] { left.WaitOne(), heir = BlockIn([&] { return left.WaitOne(5000); }); }).join();
    EXPECT_FALSE(heir.get());
    const auto enter = [&] { return Monitor::TryEnter(target, -1); };
    std::jthread([&] { Monitor::Enter(target), heir = BlockIn(enter); }).join();
    EXPECT_FALSE(heir.get());
    EXPECT_TRUE(Monitor::TryEnter(target)); // free, as the heir was told
    Monitor::Exit(target);
}

TEST(ThreadLinuxTests, ThousandsOfThreadsLeaveNothingBehind)
{
    const auto run = [](int count)
    {
        for (int index = 0; index < count; ++index)
        {
            Thread thread{ThreadStart(nothing)};
            thread.Start();
            if (index % 2 == 0) // joined or not
            {
                thread.Join();
            }
        }
    };
    run(100);
    const long pages = MappedPages();

    run(3000);

    EXPECT_LT(MappedPages() - pages, 128 * 1024); // 512 MB: 64 default stacks, where a leak would keep 1500
}
