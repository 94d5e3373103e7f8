#include <Tests/Support/CoreTest.h>

#include <Core/System/Net/Sockets/SocketException.h>
#include <Core/System/Net/Sockets/UdpClient.h>

#include <cstring>

namespace Tesmo::System::Net::Sockets
{
namespace
{
using Collections::Generic::List;

constexpr int Room = 16;

const IPEndPoint& Loopback()
{
    static const IPEndPoint endPoint(IPAddress(127, 0, 0, 1), 0);
    return endPoint;
}

const IPEndPoint& LocalOf(const Socket& socket)
{
    return dynamic_cast<const IPEndPoint&>(socket.LocalEndPoint());
}

Up<unsigned char[]> Bytes(const char* text = "")
{
    Up<unsigned char[]> bytes(new unsigned char[Room]());
    std::memcpy(bytes.Get(), text, std::strlen(text));
    return bytes;
}

int CodeOf(const std::function<void()>& call)
{
    try
    {
        call();
    }
    catch (const SocketException& failure)
    {
        EXPECT_EQ(failure.SocketErrorCode().Value(), failure.ErrorCode());
        EXPECT_EQ("The Socket operation failed.", failure.Message().Utf8());
        return failure.ErrorCode();
    }
    return 0;
}
} // namespace

TEST(SocketTests, DatagramsCarryTheirSender)
{
    UdpClient one(Loopback());
    UdpClient two(Loopback());
    ASSERT_EQ(4, one.Send(Bytes("ping"), 4, LocalOf(*two.Client())));
    ASSERT_EQ(4, one.Client()->SendTo(Bytes("> pong"), Room, 2, 4, SocketFlags::None, LocalOf(*two.Client())));

    const auto buffer = Bytes();
    IPEndPoint sender(IPAddress::Any, 0);
    EXPECT_EQ(4, two.Receive(buffer, Room, sender));
    EXPECT_TRUE(sender.Equals(one.Client()->LocalEndPoint())) << sender.ToString().Utf8();

    Sp<EndPoint> other(new IPEndPoint(IPAddress::Any, 0));
    EXPECT_EQ(4, two.Client()->ReceiveFrom(buffer, Room, 2, Room - 2, SocketFlags::None, other));
    EXPECT_STREQ("pipong", reinterpret_cast<const char*>(buffer.Get()));
    EXPECT_TRUE(other->Equals(one.Client()->LocalEndPoint()));
}

TEST(SocketTests, ChecksBufferAndRangeThenTheSocket)
{
    const UdpClient client(Loopback());
    Socket& socket = *client.Client();
    const SocketFlags flags = SocketFlags::None;
    IPEndPoint sender(IPAddress::Any, 0);
    Sp<EndPoint> none;
    using Row = std::tuple<int, int, int>;
    for (const auto& [length, offset, size] :
         {Row{0, 0, 0}, Row{Room, Room, 0}, Row{Room, -1, 1}, Row{Room, 1, Room}, Row{Room, 0, -1}})
    {
        SCOPED_TRACE(offset);
        const auto buffer = Bytes();
        EXPECT_THROW(socket.SendTo(buffer, length, offset, size, flags, Loopback()), IndexOutOfRangeException);
        EXPECT_THROW(socket.ReceiveFrom(buffer, length, offset, size, flags, sender), IndexOutOfRangeException);
    }
    ExpectEachThrows<ArgumentNullException>(
        {[&] { socket.SendTo(null, 1, 0, 1, flags, Loopback()); },
         [&] { socket.SendTo(Bytes(), Room, 0, 1, flags, null); },
         [&] { socket.SendTo(Bytes(), Room, 0, 1, null, Loopback()); },
         [&] { socket.ReceiveFrom(Up<unsigned char[]>(), 1, 0, 1, flags, sender); },
         [&] { socket.ReceiveFrom(Bytes(), Room, 0, 1, flags, none); },
         [&] { socket.ReceiveFrom(Bytes(), Room, 0, 1, null, sender); },
         [&] { socket.ReceiveFrom(Bytes(), Room, 0, 1, null, none); }, [&] { socket.Send(Bytes(), Room, 0, 1, null); },
         [&] { socket.Receive(Bytes(), Room, 0, 1, null); }, [&] { socket.Shutdown(null); },
         [&] { socket.Connect(null); }, [&] { socket.Bind(null); }, [&] { socket.Bind(none); },
         [&] { socket.SetSocketOption(null, SocketOptionName::Broadcast, true); },
         [&] { socket.SetSocketOption(SocketOptionLevel::Socket, null, true); },
         [&] { IPEndPoint(static_cast<const unsigned char*>(nullptr), 16); }});
    socket.Close();
    socket.Close();
    EXPECT_THROW(socket.SendTo(Bytes(), 0, 0, 0, flags, Loopback()), IndexOutOfRangeException);
    ExpectEachThrows<ObjectClosedException>({[&] { socket.SendTo(Bytes(), Room, 0, 1, flags, Loopback()); },
                                             [&] { socket.ReceiveFrom(Bytes(), Room, 0, 1, flags, sender); },
                                             [&] { socket.Shutdown(SocketShutdown::Both); },
                                             [&] { socket.Bind(Sp<EndPoint>(new IPEndPoint(Loopback()))); },
                                             [&] { socket.GetAvailable(); }});
}

TEST(SocketTests, FailuresTellTheirNumber)
{
    UdpClient one(Loopback());
    UdpClient two(Loopback());
    one.Send(Bytes("too long"), 8, LocalOf(*two.Client()));
    IPEndPoint sender(IPAddress::Any, 0);

    EXPECT_EQ(SocketError::MessageSize, CodeOf([&] { two.Receive(Bytes(), 7, sender); }));
    EXPECT_EQ(SocketError::AddressAlreadyInUse, CodeOf([&] { UdpClient third(LocalOf(*one.Client())); }));
    Socket stream(AddressFamily::InterNetwork, SocketType::Stream, ProtocolType::Tcp);
    EXPECT_EQ(SocketError::NotConnected, CodeOf([&] { stream.Listen(1); }));
    EXPECT_NE(0, CodeOf([] { Socket none(AddressFamily::InterNetwork, SocketType::Dgram, ProtocolType::Tcp); }));

    for (const SocketException& unnumbered :
         {SocketException(), SocketException("text"), SocketException("file", 7), SocketException("text", "file", 7),
          SocketException("text", Exception(), "file", 7)})
    {
        EXPECT_EQ(SocketError::SockError, unnumbered.ErrorCode());
    }
    const SocketException original(SocketError::ConnectionReset, "file.cpp", 7);
    const SocketException copy(original);
    EXPECT_TRUE(copy.SocketErrorCode() == SocketError::ConnectionReset && copy.Equals(original));
}

TEST(SocketTests, OptionsKeepTheirValuesInEachForm)
{
    UdpClient client;
    Socket& socket = *client.Client();
    socket.SetSocketOption(SocketOptionLevel::IP, SocketOptionName::IpTimeToLive, true);
    bool mayBroadcast = true;
    socket.GetSocketOption(SocketOptionLevel::Socket, SocketOptionName::Broadcast, mayBroadcast);
    EXPECT_FALSE(mayBroadcast);
    int hops = 0;
    socket.GetSocketOption(SocketOptionLevel::IP, SocketOptionName::IpTimeToLive, hops);
    EXPECT_GT(hops, 1) << "true has all bits set, and -1 stands for the system's own value";
    Array<Byte> bytes(std::vector<Byte>(6, Byte(9)));
    socket.GetSocketOption(SocketOptionLevel::IP, SocketOptionName::IpTimeToLive, bytes);
    EXPECT_EQ(hops, bytes[0]);
    EXPECT_EQ(0, bytes[5]) << "is not filled";

    MulticastOption option(IPAddress(239, 1, 2, 3), IPAddress(127, 0, 0, 1));
    client.JoinMulticastGroup(option);
    EXPECT_EQ(SocketError::AddressAlreadyInUse,
              CodeOf([&] { client.JoinMulticastGroup(option.Group(), option.LocalAddress()); }));
    client.DropMulticastGroup(option);
    EXPECT_EQ(SocketError::AddressNotAvailable, CodeOf([&] { client.DropMulticastGroup(option.Group()); }));
    EXPECT_EQ(SocketError::ProtocolOption, // no platform tells of memberships
              CodeOf([&] { socket.GetSocketOption(SocketOptionLevel::IP, SocketOptionName::AddMembership, option); }));
    socket.SetSocketOption(SocketOptionLevel::IP, SocketOptionName::MulticastInterface,
                           option.LocalAddress().GetAddressBytes());
    socket.GetSocketOption(SocketOptionLevel::IP, SocketOptionName::MulticastInterface, option);
    EXPECT_EQ("127.0.0.1", option.Group().ToString().Utf8());
    EXPECT_EQ("0.0.0.0", option.LocalAddress().ToString().Utf8()); // behind what the platform has filled
    Socket socket6(AddressFamily::InterNetworkV6, SocketType::Dgram, ProtocolType::Udp);
    IPv6MulticastOption option6(option.Group(), 7);
    socket6.GetSocketOption(SocketOptionLevel::IPv6, SocketOptionName::IPv6Only, option6);
    EXPECT_EQ("100:0:0:0:0:0:0:0", option6.Group().ToString().Utf8());
    EXPECT_EQ(0, option6.InterfaceIndex());

    LingerOption linger(false, 0);
    Socket stream(AddressFamily::InterNetwork, SocketType::Stream, ProtocolType::Tcp);
    stream.SetSocketOption(SocketOptionLevel::Socket, SocketOptionName::Linger, LingerOption(true, 3));
    stream.GetSocketOption(SocketOptionLevel::Socket, SocketOptionName::Linger, linger);
    EXPECT_TRUE(linger.Enabled() && linger.LingerTime() == 3);
    EXPECT_THROW(linger.LingerTime(70000), ArgumentOutOfRangeException); // a platform takes 16 bits
    EXPECT_THROW(LingerOption(true, -1), ArgumentOutOfRangeException);
    EXPECT_EQ(65535, LingerOption(true, 65535).LingerTime());
}

TEST(SocketTests, AUdpClientConnectsByEachForm)
{
    UdpClient receiver(Loopback());
    const IPEndPoint& peer = LocalOf(*receiver.Client());
    const std::function<void(UdpClient&)> forms[] = {
        [&](UdpClient& client) { client.Connect(peer); },
        [&](UdpClient& client) { client.Connect(peer.Address(), peer.Port()); },
        [&](UdpClient& client) { client.Connect("127.0.0.1", peer.Port()); },
        [&](UdpClient& client) { client.Client(UdpClient("127.0.0.1", peer.Port()).Client()); },
    };
    for (const auto& connect : forms)
    {
        UdpClient client;
        connect(client);
        Socket& socket = *client.Client();
        EXPECT_TRUE(socket.IsConnected() && socket.RemoteEndPoint().Equals(peer));
        const auto buffer = Bytes("> ");
        EXPECT_EQ(2, client.Send(Bytes("hi"), 2));
        EXPECT_EQ(2, receiver.Client()->Receive(buffer, Room, 2, Room - 2, SocketFlags::None));
        EXPECT_EQ(3, socket.Send(Bytes("> you"), Room, 2, 3, SocketFlags::None));
        EXPECT_EQ(3, receiver.Client()->Receive(buffer, Room, 4, Room - 4, SocketFlags::None));
        EXPECT_STREQ("> hiyou", reinterpret_cast<const char*>(buffer.Get()));
        client.Close();
        EXPECT_FALSE(socket.IsConnected() || socket.IsBound());
    }
    EXPECT_TRUE(receiver.Client()->IsBound());
}

TEST(SocketTests, AUdpClientNeedsItsSocket)
{
    UdpClient client(Loopback());
    IPEndPoint sender(IPAddress::Any, 0);
    EXPECT_THROW(client.Send(null, 1, Loopback()), NullReferenceException);
    client.Connect(LocalOf(*client.Client()));
    EXPECT_THROW(client.Send(Bytes(), 1, Loopback()), InvalidOperationException);
    EXPECT_EQ(2, client.Send(Bytes("hi"), 2));
    EXPECT_EQ(2, client.Receive(Bytes(), Room, sender));
    client.Client()->Disconnect();
    EXPECT_FALSE(client.Client()->IsConnected() || client.Client()->IsBound());

    client.Client(Sp<Socket>());
    ExpectEachThrows<NullReferenceException>({[&] { client.Send(Bytes(), 1, Loopback()); },
                                              [&] { client.Receive(Bytes(), Room, sender); }, [&] { client.Close(); }});
}

TEST(SocketTests, AStreamConnectsAndIsSelected)
{
    const auto make = [] { return new Socket(AddressFamily::InterNetwork, SocketType::Stream, ProtocolType::Tcp); };
    const Sp<Socket> listener(make());
    const Sp<Socket> client(make());
    listener->Bind(Sp<EndPoint>(new IPEndPoint(Loopback())));
    EXPECT_EQ(SocketError::ConnectionRefused, CodeOf([&] { Sp<Socket>(make())->Connect(listener->LocalEndPoint()); }));
    listener->Listen(1);
    client->Connect(listener->LocalEndPoint());
    const Sp<Socket> server = listener->Accept();
    EXPECT_TRUE(server->IsConnected() && server->IsBound() && listener->IsBound() && !listener->IsConnected());
    EXPECT_TRUE(server->SocketType() == SocketType::Stream && server->ProtocolType() == ProtocolType::Tcp &&
                server->AddressFamily() == AddressFamily::InterNetwork);
    EXPECT_EQ(Loopback().Address(), dynamic_cast<const IPEndPoint&>(server->RemoteEndPoint()).Address());
    ASSERT_EQ(2, client->Send(Bytes("hi"), Room, 0, 2, SocketFlags::None));

    List<Sp<Socket>> readable;
    List<Sp<Socket>> writable;
    List<Sp<Socket>> failed;
    readable.Add(client);
    readable.Add(server);
    writable.Add(server);
    Socket::Select(readable, writable, failed, 10'000'000);
    ASSERT_EQ(1, readable.Count());
    EXPECT_TRUE(readable[0] == server);
    EXPECT_EQ(1, writable.Count());
    EXPECT_EQ(2, server->GetAvailable());
    const auto receive = [&] { return server->Receive(Bytes(), Room, 0, Room, SocketFlags::None); };
    EXPECT_EQ(2, receive());
    server->SetBlocking(false);
    EXPECT_FALSE(server->GetBlocking());
    EXPECT_EQ(SocketError::WouldBlock, CodeOf(receive));
    server->SetBlocking(true);
    client->Shutdown(SocketShutdown::Send);
    EXPECT_EQ(0, receive());
}
} // namespace Tesmo::System::Net::Sockets
