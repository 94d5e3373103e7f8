#include <Tests/Support/Commands.h>
#include <Tests/Support/NativeTestSocket.h>
#include <Tests/Support/PrivateNetwork.h>

#include <csignal>

namespace Tesmo::Platform
{
namespace
{
using namespace std::chrono_literals;

std::atomic<int> signals = 0;

/// Two sockets, and an address of this host on which nobody listens.
class NativeSocketsLinuxTests : public testing::Test
{
protected:
    NativeSocketsLinuxTests()
    {
        const NativeTestSocket gone;
        std::copy(std::begin(gone.local), std::end(gone.local), std::begin(closed));
    }

    NativeTestSocket one;
    NativeTestSocket two;
    NativeTestSocket::Address closed = {};
};

/// True for a select that finds nothing and takes all of its time.
bool WaitsInVain(SelectEntry entry)
{
    constexpr std::chrono::microseconds wait = 200ms;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(0, SelectSockets(&entry, 1, wait.count()));
    EXPECT_FALSE(entry.read || entry.write || entry.error);
    return std::chrono::steady_clock::now() - start >= wait;
}
} // namespace

TEST_F(NativeSocketsLinuxTests, AClosedPortIsToldOnceOnALaterReceiveAndCostsNoSend)
{
    ASSERT_EQ(0, one.SendTo(closed, "nobody there"));
    ASSERT_EQ(0, one.SendTo(two.local, "must not be lost"));

    ASSERT_EQ(0, two.Receive());
    EXPECT_EQ("must not be lost", two.text);
    ASSERT_EQ(0, two.SendTo(one.local, "answer"));
    EXPECT_EQ(SocketConnectionReset, one.Receive());
    EXPECT_EQ(0, one.Receive());
    EXPECT_EQ("answer", one.text);
}

TEST_F(NativeSocketsLinuxTests, AClosedPortIsToldOverIPv6Too)
{
    NativeSocket* socket = nullptr;
    NativeTestSocket::Address address = {FamilyInterNetworkV6, 0, closed[2], closed[3]};
    address[23] = 1; // ::1
    int size = 0;
    int received = 0;
    unsigned char byte = 0;
    ASSERT_EQ(0, OpenSocket(FamilyInterNetworkV6, TypeDatagram, 17, socket));
    EXPECT_EQ(0, SendSocket(*socket, &byte, 1, 0, address, 28, size));
    EXPECT_EQ(SocketConnectionReset, ReceiveSocket(*socket, &byte, 1, 0, address, size, received));
    FreeSocket(socket);
}

TEST_F(NativeSocketsLinuxTests, SelectFindsWhatAReceiveWouldTell)
{
    SelectEntry entry = {one.socket, true, false, true};
    ASSERT_EQ(0, one.SendTo(closed, "nobody there"));
    ASSERT_EQ(0, SelectSockets(&entry, 1, 10'000'000));
    EXPECT_TRUE(entry.read && !entry.error); // the report waits in the kernel

    ASSERT_EQ(0, one.SendTo(two.local, "takes the report out"));
    ASSERT_EQ(0, SelectSockets(&entry, 1, 0));
    EXPECT_TRUE(entry.read);
    EXPECT_EQ(SocketConnectionReset, one.Receive());
    ASSERT_EQ(0, SelectSockets(&entry, 1, 0));
    EXPECT_FALSE(entry.read);
}

TEST_F(NativeSocketsLinuxTests, SelectAndReceiveGoOnWaitingAfterWhatNobodyAskedFor)
{
    ASSERT_EQ(0, one.SendTo(closed, "nobody there"));
    EXPECT_TRUE(WaitsInVain({one.socket, false, false, true})) << "the report of a closed port is no error";
    ASSERT_EQ(0, ShutdownSocket(*two.socket, 2));
    EXPECT_TRUE(WaitsInVain({two.socket, false, false, true})) << "nor is the end";

    const PrivateNetwork network;
    if (!network.IsEntered())
    {
        GTEST_SKIP() << "no network namespace of our own is to be had";
    }
    Shell("ip link add lan1 type veth peer name lan2 && ip link set lan2 up && ip address add 10.77.0.5/24 dev lan1 && "
          "ip link set lan1 up && ip ntable change name arp_cache dev lan1 retrans 5 mcast_probes 1");
    NativeTestSocket asking(0);
    ASSERT_EQ(0, asking.SendTo({2, 0, 1, 1, 10, 77, 0, 9}, "is told as unreachable after 5 milliseconds"));
    EXPECT_TRUE(WaitsInVain({asking.socket, true, false, false}));
    ASSERT_EQ(0, asking.SetOption(4102, 200)); // milliseconds
    ASSERT_EQ(0, asking.SendTo({2, 0, 1, 1, 10, 77, 0, 8}, "the same of another host"));
    EXPECT_EQ(SocketTimedOut, asking.Receive());
}

TEST_F(NativeSocketsLinuxTests, HundredsOfClosedPortsDoNotDeafenTheSocket)
{
    ASSERT_EQ(0, one.SetOption(4098, 65536));
    for (int i = 0; i < 1000; ++i)
    {
        ASSERT_EQ(0, one.SendTo(closed, "nobody there"));
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
    struct sigaction before = {};
    ASSERT_EQ(0, ::sigaction(SIGUSR1, &counting, &before));
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
    ::sigaction(SIGUSR1, &before, nullptr);
}
} // namespace Tesmo::Platform
