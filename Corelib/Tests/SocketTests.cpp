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

const IPEndPoint loopback(IPAddress(127, 0, 0, 1), 0);

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
    return FailureOf(call).ErrorCode();
}
} // namespace

TEST(SocketTests, DatagramsCarryTheirSender)
{
    UdpClient one(loopback);
    UdpClient two(loopback);
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
    UdpClient client(loopback);
    Socket& socket = *client.Client();
    const SocketFlags flags = SocketFlags::None;
    IPEndPoint sender(IPAddress::Any, 0);
    Sp<EndPoint> none;
    const LingerOption& noLinger = null;
    const MulticastOption& noGroup = null;
    const IPv6MulticastOption& noGroup6 = null;
    const Array<Byte>& noBytes = null;
    const IPEndPoint& nowhere = null;
    int option = 0;
    List<Sp<Socket>> nobody;
    using Row = std::tuple<int, int, int>;
    for (const auto& [length, offset, size] :
         {Row{0, 0, 0}, Row{Room, Room, 0}, Row{Room, -1, 1}, Row{Room, 1, Room}, Row{Room, 0, -1}})
    {
        SCOPED_TRACE(offset);
        EXPECT_THROW(socket.SendTo(Bytes(), length, offset, size, flags, loopback), IndexOutOfRangeException);
        EXPECT_THROW(socket.ReceiveFrom(Bytes(), length, offset, size, flags, sender), IndexOutOfRangeException);
    }
    ExpectEachThrows<ArgumentNullException>(
        {[&] { socket.SendTo(null, 1, 0, 1, flags, loopback); },
         [&] { socket.SendTo(Bytes(), Room, 0, 1, flags, null); },
         [&] { socket.SendTo(Bytes(), Room, 0, 1, null, loopback); },
         [&] { socket.ReceiveFrom(Up<unsigned char[]>(), 1, 0, 1, flags, sender); },
         [&] { socket.ReceiveFrom(Bytes(), Room, 0, 1, flags, none); },
         [&] { socket.ReceiveFrom(Bytes(), Room, 0, 1, null, sender); },
         [&] { socket.ReceiveFrom(Bytes(), Room, 0, 1, null, none); },
         [&] { socket.Send(Bytes(), Room, 0, 1, null); },
         [&] { socket.Receive(Bytes(), Room, 0, 1, null); },
         [&] { socket.Shutdown(null); },
         [&] { socket.Connect(null); },
         [&] { socket.Bind(null); },
         [&] { socket.Bind(none); },
         [&] { socket.SetSocketOption(null, SocketOptionName::Broadcast, true); },
         [&] { socket.SetSocketOption(SocketOptionLevel::Socket, null, true); },
         [&] { socket.SetSocketOption(SocketOptionLevel::Socket, SocketOptionName::Linger, noLinger); },
         [&] { socket.SetSocketOption(SocketOptionLevel::IP, SocketOptionName::AddMembership, noGroup); },
         [&] { socket.SetSocketOption(SocketOptionLevel::IPv6, SocketOptionName::AddMembership, noGroup6); },
         [&] { socket.SetSocketOption(SocketOptionLevel::IP, SocketOptionName::IpTimeToLive, noBytes); },
         [&] {
             socket.GetSocketOption(SocketOptionLevel::IP, SocketOptionName::IpTimeToLive,
                                    const_cast<Array<Byte>&>(noBytes));
         },
         [&] { socket.GetSocketOption(null, SocketOptionName::IpTimeToLive, option); },
         [&] { socket.GetSocketOption(SocketOptionLevel::IP, null, option); },
         [&] { socket.ReceiveFrom(Bytes(), Room, 0, 1, flags, const_cast<IPEndPoint&>(nowhere)); },
         [&] { Socket::Select(nobody, nobody, nobody, 0); },
         [&] { IPEndPoint(static_cast<const unsigned char*>(nullptr), 16); }});
    UdpClient detached;
    detached.Client(Sp<Socket>());
    ExpectEachThrows<NullReferenceException>(
        {[&] { client.Send(null, 1, loopback); }, [&] { client.Send(Up<unsigned char[]>(), 1, loopback); },
         [&] { detached.Send(Bytes(), 1, loopback); }, [&] { detached.Receive(Bytes(), Room, sender); },
         [&] { detached.Close(); }});
    socket.Close();
    socket.Close();
    List<Sp<Socket>> closed(Array<Sp<Socket>>(client.Client()));
    EXPECT_THROW(socket.SendTo(Bytes(), 0, 0, 0, flags, loopback), IndexOutOfRangeException);
    ExpectEachThrows<ObjectClosedException>(
        {[&] { socket.SendTo(Bytes(), Room, 0, 1, flags, loopback); },
         [&] { socket.ReceiveFrom(Bytes(), Room, 0, 1, flags, sender); },
         [&] { socket.Shutdown(SocketShutdown::Both); }, [&] { socket.Bind(Sp<EndPoint>(new IPEndPoint(loopback))); },
         [&] { socket.SetBlocking(true); }, [&] { socket.GetAvailable(); }, [&] { socket.Disconnect(); },
         [&] { Socket::Select(closed, nobody, nobody, 0); }});
}

TEST(SocketTests, FailuresTellTheirNumber)
{
    const UdpClient other(loopback);
    const IPEndPoint& taken = LocalOf(*other.Client());
    Socket socket(AddressFamily::InterNetwork, SocketType::Dgram, ProtocolType::Udp);
    const auto receive = [](Socket& from, int flags = 0)
    { return CodeOf([&] { from.Receive(Bytes(), Room, 0, 1, SocketFlags(flags)); }); };
    const auto send = [](Socket& from, const IPEndPoint& target, int flags = 0)
    { return CodeOf([&] { from.SendTo(Bytes(), Room, 0, 1, SocketFlags(flags), target); }); };
    socket.SetSocketOption(SocketOptionLevel::Socket, SocketOptionName::ReceiveTimeout, 10);
    const bool waitsInVain = OnWine(); // where Windows knows that nothing can come
    EXPECT_EQ(waitsInVain ? SocketError::TimedOut : SocketError::InvalidArgument, receive(socket)) << "it has no port";
    EXPECT_EQ(0, send(socket, taken)); // binds it
    EXPECT_EQ(SocketError::TimedOut, receive(socket));
    EXPECT_EQ(waitsInVain ? SocketError::TimedOut : SocketError::OperationNotSupported,
              receive(socket, SocketFlags::OutOfBand));
    EXPECT_EQ(SocketError::OperationNotSupported, send(socket, taken, 64));
    Socket six(AddressFamily::InterNetworkV6, SocketType::Dgram, ProtocolType::Udp);
    six.SetSocketOption(SocketOptionLevel::Socket, SocketOptionName::ReceiveTimeout, waitsInVain ? 10 : 10000);
    EXPECT_EQ(0, send(six, IPEndPoint(IPAddress::Parse("0:0:0:0:0:0:0:1"), taken.Port())));
    EXPECT_EQ(waitsInVain ? SocketError::TimedOut : SocketError::ConnectionReset, receive(six)) << "only IPv4 listens";
    EXPECT_EQ(SocketError::AddressAlreadyInUse, CodeOf([&] { UdpClient third(taken); }));
    EXPECT_NE(0, CodeOf([] { Socket none(AddressFamily::InterNetwork, SocketType::Dgram, ProtocolType::Tcp); }));

    for (const SocketException& unnumbered :
         {SocketException(), SocketException("text"), SocketException("file", 7), SocketException("text", "file", 7),
          SocketException("text", Exception(), "file", 7)})
    {
        EXPECT_EQ(SocketError::SockError, unnumbered.ErrorCode());
    }
    const SocketException original(SocketError::ConnectionReset, "file.cpp", 7);
    const SocketException copy(original);
    EXPECT_TRUE(copy.SocketErrorCode() == copy.ErrorCode() && copy.Equals(original));
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
    EXPECT_EQ(OnWine() ? SocketError::InvalidArgument : SocketError::AddressNotAvailable, // no road leads to the group
              CodeOf([&] { client.DropMulticastGroup(option.Group()); }));
    const IPAddress group6 = IPAddress::Parse("65282:0:0:0:0:0:0:1"); // not for a socket of IPv4
    EXPECT_NE(0, CodeOf([&] { client.JoinMulticastGroup(group6); }));
    EXPECT_NE(0, CodeOf([&] { client.JoinMulticastGroup(7, group6); }));
    EXPECT_NE(0, CodeOf([&] { client.DropMulticastGroup(group6); }));
    EXPECT_EQ(SocketError::ProtocolOption, // no platform tells of memberships
              CodeOf([&] { socket.GetSocketOption(SocketOptionLevel::IP, SocketOptionName::AddMembership, option); }));
    socket.SetSocketOption(SocketOptionLevel::IP, SocketOptionName::MulticastInterface,
                           option.LocalAddress().GetAddressBytes());
    socket.GetSocketOption(SocketOptionLevel::IP, SocketOptionName::MulticastInterface, option);
    EXPECT_EQ("127.0.0.1", option.Group().ToString().Utf8());
    EXPECT_EQ("0.0.0.0", option.LocalAddress().ToString().Utf8()); // behind what the platform has filled
    Socket socket6(AddressFamily::InterNetworkV6, SocketType::Dgram, ProtocolType::Udp);
    IPv6MulticastOption option6(option.Group(), 7);
    EXPECT_EQ(7, option6.InterfaceIndex());
    ExpectEachThrows<ArgumentOutOfRangeException>(
        {[&] { option6.InterfaceIndex(-1); }, [&] { option6.InterfaceIndex(4294967296); }});
    option6.InterfaceIndex(4294967295);
    EXPECT_EQ(4294967295, option6.InterfaceIndex());
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
    UdpClient receiver(loopback);
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
        EXPECT_THROW(client.Send(Bytes(), 1, loopback), InvalidOperationException);
        const auto buffer = Bytes("> ");
        EXPECT_EQ(3, socket.Send(Bytes("> you"), Room, 2, 3, SocketFlags::None));
        EXPECT_EQ(3, receiver.Client()->Receive(buffer, Room, 2, Room - 2, SocketFlags::None));
        EXPECT_STREQ("> you", reinterpret_cast<const char*>(buffer.Get()));
        client.Close();
        EXPECT_FALSE(socket.IsConnected() || socket.IsBound());
    }
    IPEndPoint sender(peer);
    receiver.Connect(peer);
    EXPECT_EQ(2, receiver.Send(Bytes("hi"), 2)); // to itself
    EXPECT_EQ(2, receiver.Receive(Bytes(), Room, sender));
    receiver.Client()->Disconnect();
    EXPECT_FALSE(receiver.Client()->IsConnected() || receiver.Client()->IsBound());
}

TEST(SocketTests, AStreamConnectsAndIsSelected)
{
    const auto make = [] { return new Socket(AddressFamily::InterNetwork, SocketType::Stream, ProtocolType::Tcp); };
    const Sp<Socket> listener(make());
    const Sp<Socket> client(make());
    EXPECT_EQ(SocketError::NotConnected, CodeOf([&] { listener->Listen(1); }));
    listener->Bind(Sp<EndPoint>(new IPEndPoint(loopback)));
    EXPECT_EQ(SocketError::ConnectionRefused, CodeOf([&] { Sp<Socket>(make())->Connect(listener->LocalEndPoint()); }));
    listener->Listen(1);
    client->Connect(listener->LocalEndPoint());
    const Sp<Socket> server = listener->Accept();
    EXPECT_TRUE(server->IsConnected() && server->IsBound() && listener->IsBound() && !listener->IsConnected());
    EXPECT_TRUE(server->SocketType() == SocketType::Stream && server->ProtocolType() == ProtocolType::Tcp &&
                server->AddressFamily() == AddressFamily::InterNetwork);
    EXPECT_EQ(loopback.Address(), dynamic_cast<const IPEndPoint&>(server->RemoteEndPoint()).Address());
    ASSERT_EQ(2, client->Send(Bytes("hi"), Room, 0, 2, SocketFlags::None));

    List<Sp<Socket>> readable(Array<Sp<Socket>>(client, server));
    List<Sp<Socket>> writable(readable);
    List<Sp<Socket>> failed;
    Socket::Select(readable, writable, failed, 10'000'000);
    ASSERT_EQ(1, readable.Count());
    EXPECT_TRUE(readable[0] == server);
    EXPECT_EQ(2, writable.Count());
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
