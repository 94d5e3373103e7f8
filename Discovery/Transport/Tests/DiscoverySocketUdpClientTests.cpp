#include <Core/System/Net/Sockets/SocketException.h>
#include <Tests/Support/CoreTest.h>

#include <Discovery/Transport/DiscoveryPorts.h>
#include <Discovery/Transport/DiscoverySocketUdpClient.h>
#include <Discovery/Transport/DiscoverySocketUdpClientFactory.h>

#include <chrono>
#include <cstring>
#include <future>

namespace Zelkor::Discovery
{
namespace
{
using namespace Tesmo;
using namespace Tesmo::System;
using namespace Net;
using namespace Net::Sockets;

const IPAddress Loopback(127, 0, 0, 1);

int PortOf(const UdpClient& client)
{
    return dynamic_cast<const IPEndPoint&>(client.Client()->LocalEndPoint()).Port();
}

int FreePort()
{
    const UdpClient chosen(0);
    return PortOf(chosen);
}

Up<unsigned char[]> Bytes(const std::string& text)
{
    Up<unsigned char[]> bytes(new unsigned char[text.size() + 1]());
    std::memcpy(bytes.Get(), text.data(), text.size());
    return bytes;
}

/// The administration side: hears what is sent to the remote port.
class Listener
{
public:
    Listener() : port(PortOf(client))
    {
        client.Client()->SetSocketOption(SocketOptionLevel::Socket, SocketOptionName::ReceiveTimeout, 10000);
    }

    std::string Hear()
    {
        const Up<unsigned char[]> buffer(new unsigned char[64]());
        const int size = client.Receive(buffer, 64, sender);
        return std::string(reinterpret_cast<const char*>(buffer.Get()), static_cast<std::size_t>(size));
    }

    UdpClient client = UdpClient(0);
    const int port;
    IPEndPoint sender = IPEndPoint(IPAddress::Any, 0);
};

/// The code that a Receive ends with when end runs on another thread; NotSocket for an ObjectClosedException.
template <class End>
int CodeOfReceiveEndedBy(IDiscoverySocket& socket, End end)
{
    std::promise<void> started;
    auto receive = std::async(std::launch::async,
                              [&]
                              {
                                  const Up<unsigned char[]> buffer(new unsigned char[16]());
                                  IPEndPoint sender(IPAddress::Broadcast, 0);
                                  started.set_value();
                                  try
                                  {
                                      return socket.Receive(buffer, 16, sender);
                                  }
                                  catch (const SocketException& failure)
                                  {
                                      return failure.SocketErrorCode().Value();
                                  }
                                  catch (const ObjectClosedException&)
                                  {
                                      return static_cast<int>(SocketError::NotSocket);
                                  }
                              });
    started.get_future().wait();
    end();
    EXPECT_EQ(std::future_status::ready, receive.wait_for(std::chrono::seconds(20)));
    return receive.get();
}
} // namespace

TEST(DiscoveryPortsTests, TheDefaultIsOneSharedPairOfPorts)
{
    const Sp<DiscoveryPorts> ports = DiscoveryPorts::Default();

    EXPECT_EQ(12000, ports->GetLocalPort());
    EXPECT_EQ(12001, ports->GetRemotePort());
    EXPECT_EQ(&*ports, &*DiscoveryPorts::Default());
}

TEST(DiscoverySocketUdpClientTests, SocketsShareOnePortAndOnlyTheSharedOneTakesRequests)
{
    Listener administration;
    const int port = FreePort();
    DiscoverySocketUdpClient shared(port, administration.port);
    EXPECT_NO_THROW(DiscoverySocketUdpClient(port, administration.port));
    DiscoverySocketUdpClientFactory factory(port, administration.port);
    const Sp<IDiscoverySocket> bound = factory.Create(Loopback);

    for (IDiscoverySocket* socket : {static_cast<IDiscoverySocket*>(&shared), &*bound})
    {
        EXPECT_EQ(5, socket->SendTo(Bytes("hello"), 5, Loopback));
        EXPECT_EQ("hello", administration.Hear());
        EXPECT_TRUE(administration.sender.Equals(IPEndPoint(Loopback, port)));
        EXPECT_EQ(port, socket->GetLocalPort());
        EXPECT_EQ(administration.port, socket->GetRemotePort());
    }

    administration.client.Send(Bytes("request"), 7, IPEndPoint(Loopback, port));
    const Up<unsigned char[]> buffer(new unsigned char[16]());
    shared.GetSocket()->SetSocketOption(SocketOptionLevel::Socket, SocketOptionName::ReceiveTimeout, 10000);
    EXPECT_EQ(7, shared.Receive(buffer, 16, administration.sender)) << "the factory's socket takes no request";
}

TEST(DiscoverySocketUdpClientTests, TellsThePortThatTheSystemChose)
{
    DiscoverySocketUdpClient socket(0, 1);
    EXPECT_NE(0, socket.GetLocalPort());
    EXPECT_EQ(dynamic_cast<const IPEndPoint&>(socket.GetSocket()->LocalEndPoint()).Port(), socket.GetLocalPort());
}

TEST(DiscoverySocketUdpClientTests, BroadcastsWithoutAnOptionSetByHand)
{
    Listener administration;
    DiscoverySocketUdpClient socket(FreePort(), administration.port, Loopback);

    EXPECT_EQ(3, socket.Broadcast(Bytes("one"), 3));
    EXPECT_EQ("one", administration.Hear());
    EXPECT_EQ(3, socket.SendTo(Bytes("two"), 3, IPAddress::Broadcast));
    EXPECT_EQ("two", administration.Hear());

    EXPECT_THROW(socket.Broadcast(Bytes(""), 0), IndexOutOfRangeException);
    EXPECT_THROW(socket.Broadcast(Up<unsigned char[]>(), 1), NullReferenceException);
}

TEST(DiscoverySocketUdpClientTests, AFailedBindLeavesNoSocketBehind)
{
    const int port = FreePort();
    const IPAddress ofAnotherFamily = IPAddress::Parse("0:0:0:0:0:0:0:1");

    EXPECT_THROW(DiscoverySocketUdpClient(port, 1, ofAnotherFamily), SocketException);
    EXPECT_NO_THROW(UdpClient{port});
    EXPECT_THROW(DiscoverySocketUdpClient(65536, 1), ArgumentOutOfRangeException);
    EXPECT_THROW(DiscoverySocketUdpClient(port, 1, null), ArgumentNullException);
}

TEST(DiscoverySocketUdpClientTests, ShutdownAndCloseWakeTheReceiver)
{
    for (int round = 0; round < 5; ++round)
    {
        DiscoverySocketUdpClient one(FreePort(), 1, Loopback);
        ASSERT_EQ(SocketError::Shutdown, CodeOfReceiveEndedBy(one, [&] { one.Shutdown(); }));
        ASSERT_TRUE(one.IsShutDown() && one.IsShutDownFlag() && !one.IsClosed());

        DiscoverySocketUdpClient two(FreePort(), 1, Loopback);
        const int code = CodeOfReceiveEndedBy(two, [&] { two.Close(); });
        ASSERT_TRUE(code == SocketError::Interrupted || code == SocketError::NotSocket) << code;
        ASSERT_TRUE(!two.IsShutDown() && two.IsClosed());
    }
}

TEST(DiscoverySocketUdpClientTests, EndsOnceInEitherOrder)
{
    DiscoverySocketUdpClient one(FreePort(), 1);
    one.Shutdown();
    one.Shutdown();
    one.Close();
    one.Close();
    EXPECT_NO_THROW(one.Shutdown());
    EXPECT_THROW(one.SendTo(Bytes("late"), 4, Loopback), ObjectClosedException);

    DiscoverySocketUdpClient two(FreePort(), 1);
    two.Close();
    EXPECT_THROW(two.Shutdown(), ObjectClosedException);
    EXPECT_FALSE(two.IsShutDown());
    EXPECT_FALSE(two.IsShutDownFlag());
}

TEST(DiscoverySocketUdpClientTests, IsSilentlyDestroyedAfterACloseFromOutside)
{
    const int port = FreePort();
    {
        DiscoverySocketUdpClient socket(port, 1);
        socket.GetSocket()->Close();
        EXPECT_FALSE(socket.IsClosed());
    }
    EXPECT_NO_THROW(UdpClient{port}) << "the port is free again";
}
} // namespace Zelkor::Discovery
