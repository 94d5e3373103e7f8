#include <Discovery/Gateway/Platform/AddressChange.h>
#include <Discovery/Gateway/Platform/Linux/AddressNotice.h>
#include <Tests/Support/Commands.h>
#include <Tests/Support/IsolatedTest.h>
#include <Tests/Support/PrivateNetwork.h>
#include <chrono>
#include <fstream>
#include <future>
#include <sstream>
#include <sys/resource.h>
#include <thread>

using namespace std::chrono_literals;
using Zelkor::Discovery::Platform::CancelAddressChangeWait;
using Zelkor::Discovery::Platform::EndAddressChangeWatch;
using Zelkor::Discovery::Platform::NoteAddressChange;
using Zelkor::Discovery::Platform::WaitForAddressChange;

namespace
{

constexpr auto Limit = 10s;

/// What the system tells of the socket in this namespace that listens to changes of IPv4 addresses (rtnetlink.h:
/// RTMGRP_IPV4_IFADDR, 16): its lost messages, or -1 where there is none.
int MessagesLost()
{
    std::ifstream sockets("/proc/thread-self/net/netlink");
    std::string line;
    while (std::getline(sockets, line))
    {
        if (line.find(" 00000010 ") != std::string::npos)
        {
            std::string socket, protocol, process, groups, received, sent, dump, locks;
            int drops = 0;
            std::istringstream(line) >> socket >> protocol >> process >> groups >> received >> sent >> dump >> locks >>
                drops;
            return drops;
        }
    }
    return -1;
}

class AddressChangeTests : public IsolatedTest<PrivateNetwork>
{
protected:
    void SetUp() override
    {
        Shell("ip link add v0 type veth peer name v1; ip link set v0 up");
    }

    void TearDown() override
    {
        EndAddressChangeWatch();
    }

    /// The answer of the first wait, which a cancel ended: from here on changes count.
    static bool FirstWait()
    {
        CancelAddressChangeWait();
        return WaitForAddressChange();
    }

    /// A wait on a thread of its own; changes count when this returns.
    static std::future<bool> StartWait()
    {
        std::future<bool> wait = std::async(std::launch::async, WaitForAddressChange);
        const auto end = std::chrono::steady_clock::now() + Limit;
        while (MessagesLost() < 0 && std::chrono::steady_clock::now() < end)
        {
            std::this_thread::yield();
        }
        return wait;
    }

    /// What a wait that needn't have begun answers; one that goes on beyond the limit is cancelled.
    static bool NextWait()
    {
        std::future<bool> wait = std::async(std::launch::async, WaitForAddressChange);
        if (!Ends(wait))
        {
            CancelAddressChangeWait();
        }
        return wait.get();
    }

    static bool Ends(const std::future<bool>& wait)
    {
        return wait.wait_for(Limit) == std::future_status::ready;
    }
};

/// Changes addresses without a pause, the first time before it returns, until the end of the scope or the limit.
std::jthread StartChanges()
{
    const auto change = [] { Shell("ip addr replace 10.9.0.1/24 dev v0"); };
    change();
    return std::jthread(
        [change](const std::stop_token& stop)
        {
            const auto end = std::chrono::steady_clock::now() + Limit;
            while (!stop.stop_requested() && std::chrono::steady_clock::now() < end)
            {
                change();
            }
        });
}

} // namespace

TEST_F(AddressChangeTests, ABurstOfChangesIsOneChange)
{
    std::future<bool> first = StartWait();
    Shell("for n in 1 2 3 4 5 6 7 8; do ip addr add 10.1.0.$n/24 dev v0; ip addr del 10.1.0.$n/24 dev v0; done");
    EXPECT_TRUE(first.get());

    std::future<bool> second = StartWait();
    EXPECT_EQ(std::future_status::timeout, second.wait_for(300ms)) << "nothing of the burst is left";
    NoteAddressChange();
    EXPECT_TRUE(second.get()) << "a change that the kernel does not tell";

    std::future<bool> third = StartWait();
    EXPECT_EQ(std::future_status::timeout, third.wait_for(300ms)) << "nothing of the notice is left";
    CancelAddressChangeWait();
    EXPECT_FALSE(third.get());
}

TEST_F(AddressChangeTests, WhatHappensWhileNobodyWaitsCountsAtTheNextWaitUntilTheWatchEnds)
{
    const auto change = [] { Shell("ip addr replace 10.9.0.1/24 dev v0"); };
    EXPECT_FALSE(FirstWait());

    change();
    EXPECT_TRUE(NextWait());

    change();
    CancelAddressChangeWait();
    EXPECT_FALSE(WaitForAddressChange()) << "a cancel that no wait has met";
    EXPECT_TRUE(NextWait()) << "the change behind it";

    Shell("yes 'addr replace 10.9.0.1/24 dev v0' | head -n 3000 | ip -batch -");
    ASSERT_GT(MessagesLost(), 0);
    EXPECT_TRUE(NextWait());

    change();
    NoteAddressChange();
    CancelAddressChangeWait();
    EndAddressChangeWatch();
    EXPECT_EQ(-1, MessagesLost());
    std::future<bool> wait = StartWait();
    EXPECT_EQ(std::future_status::timeout, wait.wait_for(300ms)) << "nothing is left";
    CancelAddressChangeWait();
    EXPECT_FALSE(wait.get());
}

TEST_F(AddressChangeTests, ChangesWithoutAnEndDoNotHoldTheWait)
{
    std::future<bool> wait = StartWait();
    const auto begin = std::chrono::steady_clock::now();
    const std::jthread changes = StartChanges();

    ASSERT_TRUE(Ends(wait));

    EXPECT_TRUE(wait.get());
    EXPECT_LT(std::chrono::steady_clock::now() - begin, Limit / 2);
}

TEST_F(AddressChangeTests, AChangeOfIPv6OrOfALinkIsNone)
{
    std::future<bool> wait = StartWait();

    Shell("ip link set v1 up; ip addr add fd00::1/64 dev v0; ip link set v0 down");

    EXPECT_EQ(std::future_status::timeout, wait.wait_for(300ms));
    CancelAddressChangeWait();
    EXPECT_FALSE(wait.get());
}

TEST_F(AddressChangeTests, ACancelEndsTheSettlingToo)
{
    std::future<bool> wait = StartWait();
    {
        const std::jthread changes = StartChanges();
        CancelAddressChangeWait();
        EXPECT_FALSE(wait.get());
    }
    EXPECT_TRUE(NextWait()) << "the changes that the cancelled wait has seen";
}

TEST_F(AddressChangeTests, ACancelBeforeOrAtTheBeginOfAWaitEndsIt)
{
    EXPECT_EQ(0, CancelAddressChangeWait());
    EXPECT_EQ(0, CancelAddressChangeWait());
    EXPECT_FALSE(WaitForAddressChange());
    for (int i = 0; i < 1000; ++i)
    {
        std::future<bool> wait = std::async(std::launch::async, WaitForAddressChange);
        CancelAddressChangeWait();
        ASSERT_TRUE(Ends(wait)) << i;
        ASSERT_FALSE(wait.get()) << i;
    }
}

TEST_F(AddressChangeTests, AFailedWaitPausesUnlessItIsCancelled)
{
    FirstWait(); // the cancel's descriptor is open from here on
    EndAddressChangeWatch();
    rlimit old = {};
    ASSERT_EQ(0, getrlimit(RLIMIT_NOFILE, &old));
    const rlimit none = {3, old.rlim_max};
    ASSERT_EQ(0, setrlimit(RLIMIT_NOFILE, &none));

    const auto begin = std::chrono::steady_clock::now();
    const bool changed = WaitForAddressChange();
    const auto paused = std::chrono::steady_clock::now();
    CancelAddressChangeWait();
    const bool changedAfterCancel = WaitForAddressChange();
    const auto cancelled = std::chrono::steady_clock::now();
    setrlimit(RLIMIT_NOFILE, &old);

    EXPECT_FALSE(changed);
    EXPECT_FALSE(changedAfterCancel);
    EXPECT_GE(paused - begin, 900ms);
    EXPECT_LT(cancelled - paused, 900ms);
    EXPECT_TRUE(NextWait()) << "nobody knows what happened meanwhile";
}
