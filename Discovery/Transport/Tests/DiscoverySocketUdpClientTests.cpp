#include <Core/System/Net/Sockets/SocketException.h>
#include <Tests/Support/CoreTest.h>

#include <Discovery/Transport/DiscoverySocketUdpClient.h>
#include <Discovery/Transport/DiscoverySocketUdpClientFactory.h>

#include <cstring>

namespace Zelkor::Discovery
{
namespace
{
using namespace Net;
using namespace Net::Sockets;

const IPAddress Loopback(127, 0, 0, 1);

int PortOf(const UdpClient& client)
{
    return dynamic_cast<const IPEndPoint&>(client.Client()->LocalEndPoint()).Port();
}

std::pair<int, int> TwoFreePorts()
{
    const UdpClient one(0);
    const UdpClient two(0);
    return {PortOf(one), PortOf(two)};
}

Up<unsigned char[]> Bytes(const std::string& text)
{
    Up<unsigned char[]> bytes(new unsigned char[text.size() + 1]());
    std::memcpy(bytes.Get(), text.data(), text.size());
    return bytes;
}

int OptionOf(IDiscoverySocket& socket, const SocketOptionName& name)
{
    int value = 0;
    socket.GetSocket()->GetSocketOption(SocketOptionLevel::Socket, name, value);
    return value;
}

/// The next datagram's text, or the number of the failure.
std::string Hear(IDiscoverySocket& socket, IPEndPoint& sender)
{
    const Up<unsigned char[]> buffer(new unsigned char[64]());
    try
    {
        const int size = socket.Receive(buffer, 64, sender);
        return std::string(reinterpret_cast<const char*>(buffer.Get()), static_cast<std::size_t>(size));
    }
    catch (const SocketException& failure)
    {
        return std::to_string(failure.SocketErrorCode().Value());
    }
}

/// The client's shared socket and the administration side, whose ports are each other's remote ports.
class DiscoverySocketUdpClientTests : public testing::Test
{
protected:
    DiscoverySocketUdpClientTests()
    {
        for (DiscoverySocketUdpClient* socket : {&shared, &administration})
        {
            socket->GetSocket()->SetSocketOption(SocketOptionLevel::Socket, SocketOptionName::ReceiveTimeout, 10000);
        }
    }

    const std::pair<int, int> ports = TwoFreePorts();
    const int port = ports.first;
    const int remotePort = ports.second;
    DiscoverySocketUdpClient shared = DiscoverySocketUdpClient(port, remotePort);
    DiscoverySocketUdpClient administration = DiscoverySocketUdpClient(remotePort, port);
    IPEndPoint sender = IPEndPoint(IPAddress::Any, 0);
};
} // namespace

TEST_F(DiscoverySocketUdpClientTests, SocketsShareOnePortAndOnlyTheSharedOneTakesRequests)
{
    EXPECT_EQ(65536, OptionOf(shared, SocketOptionName::ReceiveBuffer));
    DiscoverySocketUdpClientFactory factory(port, remotePort);
    const Sp<IDiscoverySocket> bound = factory.Create(Loopback);
    const Sp<IDiscoverySocket> unbound = factory.Create(IPAddress::Any);
    EXPECT_NE(0, OptionOf(*bound, SocketOptionName::ReuseAddress));
    for (IDiscoverySocket* socket : {static_cast<IDiscoverySocket*>(&shared), &*bound, &*unbound})
    {
        EXPECT_EQ(5, socket->SendTo(Bytes("hello"), 5, Loopback));
        EXPECT_EQ("hello", Hear(administration, sender));
        EXPECT_TRUE(sender.Equals(IPEndPoint(Loopback, port)));
        EXPECT_EQ(port, socket->GetLocalPort());
        EXPECT_EQ(remotePort, socket->GetRemotePort());
    }

    if (OnWine()) // Win32 has no way to keep requests from a socket of 0.0.0.0 (decision 99)
    {
        unbound->Close();
    }
    administration.SendTo(Bytes("request"), 7, Loopback);
    EXPECT_EQ("request", Hear(shared, sender));
    EXPECT_TRUE(sender.Equals(IPEndPoint(Loopback, remotePort)));
}

TEST_F(DiscoverySocketUdpClientTests, BroadcastsWithoutAnOptionSetByHand)
{
    DiscoverySocketUdpClient socket(port, remotePort, Loopback);

    EXPECT_EQ(3, socket.Broadcast(Bytes("one"), 3));
    EXPECT_EQ("one", Hear(administration, sender));
    EXPECT_EQ(3, socket.SendTo(Bytes("two"), 3, IPAddress::Broadcast));
    EXPECT_EQ("two", Hear(administration, sender));
}

TEST_F(DiscoverySocketUdpClientTests, EndsOnceInEitherOrder)
{
    shared.Shutdown();
    EXPECT_TRUE(shared.IsShutDown() && shared.IsShutDownFlag() && !shared.IsClosed());
    EXPECT_EQ("10058", Hear(shared, sender));
    shared.Shutdown();
    shared.Close();
    shared.Close();
    EXPECT_TRUE(shared.IsClosed());
    EXPECT_NO_THROW(shared.Shutdown());
    EXPECT_THROW(shared.SendTo(Bytes("late"), 4, Loopback), ObjectClosedException);
    EXPECT_THROW(Hear(shared, sender), ObjectClosedException);

    administration.Close();
    EXPECT_THROW(administration.Shutdown(), ObjectClosedException);
    EXPECT_FALSE(administration.IsShutDown() || administration.IsShutDownFlag());
}

TEST_F(DiscoverySocketUdpClientTests, NeitherAFailedBindNorACloseFromOutsideLeavesASocketBehind)
{
    shared.Close();
    EXPECT_THROW(DiscoverySocketUdpClient(port, 1, IPAddress::Parse("0:0:0:0:0:0:0:1")), SocketException);
    EXPECT_NO_THROW(UdpClient{port});
    {
        DiscoverySocketUdpClient socket(port, 1);
        socket.GetSocket()->Close();
        EXPECT_FALSE(socket.IsClosed());
    }
    EXPECT_NO_THROW(UdpClient{port});
}
} // namespace Zelkor::Discovery
