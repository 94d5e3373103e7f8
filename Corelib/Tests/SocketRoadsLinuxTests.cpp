#include <Tests/Support/NativeTestSocket.h>

#include <Tests/Support/IsolatedTest.h>
#include <arpa/inet.h>

namespace Tesmo::Platform
{
namespace
{
using Bind = NativeTestSocket::Bind;

struct Address
{
    Address(const char* dotted, int port = 0)
        : bytes{2, 0, static_cast<unsigned char>(port >> 8), static_cast<unsigned char>(port)}
    {
        EXPECT_EQ(1, inet_pton(AF_INET, dotted, bytes + 4));
    }

    NativeTestSocket::Address bytes;
};

/// The code of a datagram from source to target, or of the bind before it.
int CodeOfSend(Bind bind, const char* source, const char* target, int port = 12001, int mayBroadcast = 1)
{
    NativeSocket* socket = nullptr;
    int sent = 0;
    EXPECT_EQ(0, OpenSocket(FamilyInterNetwork, TypeDatagram, 17, socket));
    EXPECT_EQ(0, SetSocketOption(*socket, 65535, 32, &mayBroadcast, sizeof(mayBroadcast)));
    int code = bind(*socket, Address(source).bytes, 16);
    if (code == 0)
    {
        code = SendSocket(*socket, reinterpret_cast<const unsigned char*>("hi"), 2, 0, Address(target, port).bytes, 16,
                          sent);
    }
    FreeSocket(socket);
    return code;
}
} // namespace

/// A host on a LAN, with an adapter before it whose cable leads nowhere, and a bridge without ports behind it.
class SocketRoadsLinuxTests : public IsolatedTest<PrivateNetwork>
{
protected:
    void SetUp() override
    {
        Shell("set -e; ip link add lan0 type veth peer name cut && ip address add 10.66.0.5/24 dev lan0\n"
              "ip link add lan1 type veth peer name lan2 && ip address add 10.77.0.5/24 dev lan1 label lan1office\n"
              "ip link add docker0 type bridge && ip address add 172.17.0.1/16 dev docker0\n"
              "for link in lan0 lan1 lan2 docker0; do ip link set $link up; done");
    }
};

TEST_F(SocketRoadsLinuxTests, ABroadcastWithoutARouteLeavesByTheBestInterface)
{
    NativeTestSocket listener(0);
    ASSERT_EQ(0, listener.SetOption(4102, 10000)); // milliseconds
    for (const auto& [change, expected] :
         std::initializer_list<std::pair<const char*, const char*>>{{"true", "10.77.0.5"},
                                                                    {"ip link set lan1 down", "172.17.0.1"},
                                                                    {"ip link set docker0 down", "10.66.0.5"},
                                                                    {"ip link set lan0 down", "127.0.0.1"}})
    {
        SCOPED_TRACE(change);
        Shell(change);
        for (const Bind bind : {BindSocket, BindSocketForSending})
        {
            ASSERT_EQ(0, CodeOfSend(bind, "0.0.0.0", "255.255.255.255", listener.Port()));
            ASSERT_EQ(0, listener.Receive());
            EXPECT_TRUE(std::equal(listener.sender + 4, listener.sender + 8, Address(expected).bytes + 4));
        }
    }
    Shell("ip link set lo down");
    EXPECT_EQ(SocketNetworkUnreachable, CodeOfSend(BindSocket, "0.0.0.0", "255.255.255.255"));
}

TEST_F(SocketRoadsLinuxTests, SelectAndReceiveGoOnWaitingAfterAHostThatIsUnreachable)
{
    Shell("ip ntable change name arp_cache dev lan1 retrans 5 mcast_probes 1"); // told after 5 milliseconds
    NativeTestSocket asking(0);
    ASSERT_EQ(0, asking.SendTo(Address("10.77.0.9", 257).bytes, "nobody there"));
    EXPECT_TRUE(asking.WaitsInVain(true));
    ASSERT_EQ(0, asking.SetOption(4102, 200)); // milliseconds
    ASSERT_EQ(0, asking.SendTo(Address("10.77.0.8", 257).bytes, "nor there"));
    EXPECT_EQ(SocketTimedOut, asking.Receive());
}

TEST_F(SocketRoadsLinuxTests, ADatagramLeavesByAnInterfaceOfItsSourceOrNotAtAll)
{
    using Row = std::tuple<const char*, const char*, const char*, int>; // a change of the network, source, target
    const Row rows[] = {
        {"tc qdisc add dev lan1 root bfifo limit 1", "10.77.0.5", "10.77.0.255", 0}, // lost in a full queue
        {"tc qdisc del dev lan1 root", "10.77.0.5", "10.77.0.1", 0},
        {"true", "10.77.0.5", "172.17.0.1", 0}, // this host itself
        {"true", "10.77.0.5", "192.0.2.1", SocketNetworkUnreachable},
        {"true", "172.17.0.1", "10.77.0.1", SocketNetworkUnreachable},
        {"true", "172.17.0.1", "10.77.0.255", SocketNetworkUnreachable},
        {"true", "172.17.0.1", "255.255.255.255", 0},
        {"true", "192.0.2.2", "10.77.0.1", SocketAddressNotAvailable},
        {"true", "10.77.0.255", "10.77.0.1", SocketAddressNotAvailable},
        {"ip route add default dev lan1", "10.77.0.5", "192.0.2.1", 0},
        {"true", "172.17.0.1", "192.0.2.1", SocketNetworkUnreachable},
        {"ip route add default dev docker0 metric 9", "172.17.0.1", "192.0.2.1", 0},
        {"ip address add 10.77.0.5/32 dev docker0", "10.77.0.5", "10.77.0.1", 0}, // shared by both
        {"true", "10.77.0.5", "192.0.2.1", 0},
        {"ip link set lan1 down", "10.77.0.5", "10.77.0.1", 0},
        {"ip link set docker0 down", "172.17.0.1", "192.0.2.1", SocketNetworkUnreachable}};
    for (const auto& [change, source, target, code] : rows)
    {
        Shell(change);
        EXPECT_EQ(code, CodeOfSend(BindSocketForSending, source, target)) << source << " to " << target;
    }
}

TEST_F(SocketRoadsLinuxTests, ARefusalIsAnUnreachableNetworkAndCostsNoBroadcast)
{
    for (const char* type : {"unreachable", "prohibit", "blackhole"})
    {
        SCOPED_TRACE(type);
        Shell("ip route replace " + std::string(type) + " default");
        for (const Bind bind : {BindSocket, BindSocketForSending})
        {
            EXPECT_EQ(SocketNetworkUnreachable, CodeOfSend(bind, "0.0.0.0", "192.0.2.1"));
            EXPECT_EQ(0, CodeOfSend(bind, "0.0.0.0", "255.255.255.255"));
            EXPECT_EQ(SocketAccessDenied, CodeOfSend(bind, "0.0.0.0", "255.255.255.255", 12001, 0));
            EXPECT_EQ(SocketAccessDenied, CodeOfSend(bind, "10.77.0.5", "10.77.0.255", 12001, 0));
        }
        EXPECT_EQ(SocketNetworkUnreachable, CodeOfSend(BindSocket, "10.77.0.5", "192.0.2.1"));
    }
    EXPECT_EQ(SocketAddressNotAvailable, CodeOfSend(BindSocket, "0.0.0.0", "10.77.0.1", 0));
    Shell("ip route del blackhole default");
    NativeSocket* stream = nullptr;
    ASSERT_EQ(0, OpenSocket(FamilyInterNetwork, TypeStream, 6, stream));
    EXPECT_EQ(SocketNetworkUnreachable, ConnectSocket(*stream, Address("192.0.2.1", 1).bytes, 16));
    EXPECT_EQ(SocketNotSupported, BindSocketForSending(*stream, Address("10.77.0.5").bytes, 16));
    FreeSocket(stream);
    Shell("nft 'add table ip wall; add chain ip wall out { type filter hook output priority 0; }; add rule ip wall out "
          "drop'");
    EXPECT_EQ(SocketNetworkUnreachable, CodeOfSend(BindSocket, "0.0.0.0", "10.77.0.1"));
}

} // namespace Tesmo::Platform
