#include <Tests/Support/NativeTestSocket.h>

#include <csignal>

namespace Tesmo::Platform
{
namespace
{
std::atomic<int> signals = 0;

/// Two sockets, and one that is closed: nobody listens on its address.
class NativeSocketsLinuxTests : public testing::Test
{
protected:
    NativeSocketsLinuxTests()
    {
        CloseSocket(*closed.socket);
    }

    NativeTestSocket one;
    NativeTestSocket two;
    NativeTestSocket closed;
};
} // namespace

TEST_F(NativeSocketsLinuxTests, AClosedPortIsFoundBySelectAndToldOnceByTheNextReceive)
{
    SelectEntry entry = {one.socket, true, false, true};
    ASSERT_EQ(0, one.SendTo(closed.local, "nobody there"));
    for (int i = 0; i < 2; ++i) // the report waits in the kernel, and then here
    {
        ASSERT_EQ(0, SelectSockets(&entry, 1, 10'000'000));
        EXPECT_TRUE(entry.read && !entry.error);
    }
    EXPECT_EQ(SocketConnectionReset, one.Receive());
    ASSERT_EQ(0, SelectSockets(&entry, 1, 0));
    EXPECT_FALSE(entry.read);
}

TEST_F(NativeSocketsLinuxTests, SelectGoesOnWaitingAfterWhatNobodyAskedFor)
{
    ASSERT_EQ(0, one.SendTo(closed.local, "nobody there"));
    EXPECT_TRUE(one.WaitsInVain(false)) << "the report of a closed port is no error";
    ASSERT_EQ(0, ShutdownSocket(*two.socket, 2));
    EXPECT_TRUE(two.WaitsInVain(false)) << "nor is the end";
}

TEST_F(NativeSocketsLinuxTests, HundredsOfClosedPortsNeitherDeafenTheSocketNorCostASend)
{
    ASSERT_EQ(0, one.SetOption(4098, 65536));
    for (int i = 0; i < 1000; ++i)
    {
        ASSERT_EQ(0, one.SendTo(closed.local, "nobody there"));
    }
    ASSERT_EQ(0, two.SendTo(one.local, "still heard"));
    int told = 0;
    while (one.Receive() == SocketConnectionReset && told < 1000)
    {
        ++told;
    }
    EXPECT_GT(told, 0);
    EXPECT_EQ("still heard", one.text);
}

TEST_F(NativeSocketsLinuxTests, ASignalDoesNotEndAReceive)
{
    struct sigaction counting = {};
    counting.sa_handler = [](int) { ++signals; }; // without SA_RESTART: a system call that blocks fails with EINTR
    ASSERT_EQ(0, ::sigaction(SIGUSR1, &counting, nullptr));
    ASSERT_EQ(0, one.SetOption(4102, -1)); // as good as endless
    int code = -1;
    std::jthread receive([&] { code = one.Receive(); });
    for (int seen = 0; seen < 20; seen = signals)
    {
        ASSERT_EQ(0, ::pthread_kill(receive.native_handle(), SIGUSR1));
        std::this_thread::yield();
    }
    ASSERT_EQ(0, two.SendTo(one.local, "after the signals"));
    receive.join();
    EXPECT_EQ(0, code);
    EXPECT_EQ("after the signals", one.text);
}
} // namespace Tesmo::Platform
