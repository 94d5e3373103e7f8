#include <Discovery/Gateway/Platform/AddressChange.h>
#include <Tests/Support/IsolatedTest.h>
#include <chrono>
#include <future>
#include <sys/resource.h>
#include <thread>

using namespace std::chrono_literals;
using std::chrono::steady_clock;
using namespace Zelkor::Discovery::Client::Platform;

namespace
{

constexpr auto Limit = 10s;

void Change()
{
    Shell("ip addr replace 10.9.0.1/24 dev v0");
}

std::future<bool> StartWait()
{
    return std::async(std::launch::async, WaitForAddressChange);
}

/// What the wait answers; one that goes on beyond the limit is cancelled.
bool Answer(std::future<bool> wait)
{
    if (wait.wait_for(Limit) != std::future_status::ready)
    {
        ADD_FAILURE() << "no end";
        CancelAddressChangeWait();
    }
    return wait.get();
}

/// Expects that only a cancel ends the wait.
void ExpectNoChange(std::future<bool> wait)
{
    EXPECT_EQ(std::future_status::timeout, wait.wait_for(300ms));
    CancelAddressChangeWait();
    EXPECT_FALSE(wait.get());
}

/// Lets a body run while the process can open nothing.
template <class Body>
void WithoutDescriptors(const Body& body)
{
    rlimit old = {};
    ASSERT_EQ(0, getrlimit(RLIMIT_NOFILE, &old));
    const rlimit none = {3, old.rlim_max};
    ASSERT_EQ(0, setrlimit(RLIMIT_NOFILE, &none));
    body();
    setrlimit(RLIMIT_NOFILE, &old);
}

/// The watch begins before each test.
class AddressChangeTests : public IsolatedTest<PrivateNetwork>
{
protected:
    void SetUp() override
    {
        Shell("ip link add v0 type veth peer name v1; ip link set v0 up");
        EXPECT_EQ(0, CancelAddressChangeWait());
        EXPECT_EQ(0, CancelAddressChangeWait());
        EXPECT_FALSE(Answer(StartWait())) << "a cancel before the wait";
    }

    void TearDown() override
    {
        EndAddressChangeWatch();
    }
};

} // namespace

TEST_F(AddressChangeTests, ABurstOfIPv4ChangesIsOneChange)
{
    std::future<bool> wait = StartWait();
    Shell("for n in 1 2 3 4 5 6 7 8; do echo addr add 10.1.0.$n/24 dev v0; echo addr del 10.1.0.$n/24 dev v0; done |"
          "ip -batch -");
    EXPECT_TRUE(Answer(std::move(wait)));
    wait = StartWait();
    Shell("ip link set v1 up; ip addr add fd00::1/64 dev v0; ip link set v0 down"); // no IPv4
    ExpectNoChange(std::move(wait));
}

TEST_F(AddressChangeTests, WhatHappensWhileNobodyWaitsCountsAtTheNextWaitUntilTheWatchEnds)
{
    Change();
    EXPECT_TRUE(Answer(StartWait()));

    Change();
    CancelAddressChangeWait();
    EXPECT_FALSE(WaitForAddressChange()) << "a cancel that no wait has met";
    EXPECT_TRUE(Answer(StartWait())) << "the change behind it";

    // More than the socket (group 10) takes, which counts the messages that are lost.
    Shell("yes 'addr replace 10.9.0.1/24 dev v0' | head -n 3000 | ip -batch -;"
          "awk '$4 == 10 && $9 > 0 { n++ } END { exit !n }' /proc/net/netlink");
    EXPECT_TRUE(Answer(StartWait()));

    Change();
    NoteAddressChange();
    CancelAddressChangeWait();
    EndAddressChangeWatch();
    Shell("awk '$4 == 10 { n++ } END { exit n }' /proc/net/netlink");
    ExpectNoChange(StartWait());
}

TEST_F(AddressChangeTests, ChangesWithoutAnEndDoNotHoldTheWait)
{
    const std::jthread changes(
        [](const std::stop_token& stop)
        {
            while (!stop.stop_requested())
            {
                Change();
            }
        });
    const auto begin = steady_clock::now();
    EXPECT_TRUE(Answer(StartWait()));
    EXPECT_LT(steady_clock::now() - begin, Limit / 2);
}

TEST_F(AddressChangeTests, ACancelEndsTheSettlingAndLeavesTheChangeToTheNextWait)
{
    bool hasSettled = true;
    for (int tries = 0; hasSettled && tries < 10; ++tries) // a slow host may settle before the cancel
    {
        NoteAddressChange();
        std::future<bool> wait = StartWait();
        wait.wait_for(30ms);
        CancelAddressChangeWait();
        hasSettled = Answer(std::move(wait));
        if (hasSettled)
        {
            EXPECT_FALSE(Answer(StartWait())) << "the cancel that came too late";
        }
    }
    EXPECT_FALSE(hasSettled);
    EXPECT_TRUE(Answer(StartWait()));
}

TEST_F(AddressChangeTests, AFailedWaitPausesUnlessItIsCancelled)
{
    EndAddressChangeWatch();
    WithoutDescriptors(
        []
        {
            const auto begin = steady_clock::now();
            EXPECT_FALSE(WaitForAddressChange());
            const auto paused = steady_clock::now();
            EXPECT_GE(paused - begin, 900ms);
            CancelAddressChangeWait();
            EXPECT_FALSE(WaitForAddressChange());
            EXPECT_LT(steady_clock::now() - paused, 900ms);
        });
    EXPECT_TRUE(Answer(StartWait())) << "nobody knows what happened meanwhile";
}

TEST(AddressChangeFirstWaitTests, NothingThatCouldNotBeOpenedAtFirstIsMissingLater)
{
    WithoutDescriptors([] { EXPECT_FALSE(WaitForAddressChange()); });
    EXPECT_EQ(0, CancelAddressChangeWait());
    EXPECT_FALSE(Answer(StartWait()));
    EXPECT_TRUE(Answer(StartWait())) << "nobody knows what happened meanwhile";
    NoteAddressChange();
    EXPECT_TRUE(Answer(StartWait()));
    EndAddressChangeWatch();
}
