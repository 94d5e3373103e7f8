#include <Core/System/Net/Sockets/UdpClient.h>

#include <Core/System/ArgumentNullException.h>
#include <Core/System/Checks.h>
#include <Core/System/InvalidOperationException.h>
#include <Core/System/Net/Dns.h>
#include <Core/System/NullReferenceException.h>

namespace Tesmo::System::Net::Sockets
{
namespace
{
Sp<Socket> MakeSocket(const AddressFamily& family)
{
    return Sp<Socket>(new Socket(family, SocketType::Dgram, ProtocolType::Udp));
}

void RequireBuffer(const Up<unsigned char[]>& buffer)
{
    if (IsNull(buffer) || buffer == null)
    {
        throw NullReferenceException(ThrowSite);
    }
}

bool IsIPv6(const IPAddress& address)
{
    return NotNull(address).AddressFamily() == AddressFamily::InterNetworkV6;
}

IPEndPoint Resolve(const String& hostName, int port)
{
    const Array<IPAddress> addresses = Dns::GetHostAddresses(hostName);
    if (addresses.Length() == 0)
    {
        throw InvalidOperationException(ThrowSite);
    }
    return IPEndPoint(addresses[0], port);
}
} // namespace

UdpClient::UdpClient() : client(MakeSocket(AddressFamily::InterNetwork)) {}

UdpClient::UdpClient(int port) : UdpClient(IPEndPoint(IPAddress::Any, port)) {}

UdpClient::UdpClient(const IPEndPoint& localEndPoint) : client(MakeSocket(NotNull(localEndPoint).AddressFamily()))
{
    client->Bind(Sp<EndPoint>(new IPEndPoint(localEndPoint)));
}

UdpClient::UdpClient(const String& hostName, int port)
{
    const IPEndPoint peer = Resolve(hostName, port);
    client = MakeSocket(peer.AddressFamily());
    client->Connect(peer);
}

int UdpClient::Send(const Up<unsigned char[]>& buffer, int length, const IPEndPoint& endPoint)
{
    Socket& socket = RequiredClient();
    RequireBuffer(buffer);
    if (socket.IsConnected())
    {
        throw InvalidOperationException(ThrowSite);
    }
    if (NotNull(endPoint).Address() == IPAddress::Broadcast)
    {
        socket.SetSocketOption(SocketOptionLevel::Socket, SocketOptionName::Broadcast, true);
    }
    return socket.SendTo(buffer, length, 0, length, SocketFlags::None, endPoint);
}

int UdpClient::Send(const Up<unsigned char[]>& buffer, int length)
{
    Socket& socket = RequiredClient();
    RequireBuffer(buffer);
    return socket.Send(buffer, length, 0, length, SocketFlags::None);
}

int UdpClient::Receive(const Up<unsigned char[]>& buffer, int length, IPEndPoint& endPoint)
{
    return RequiredClient().ReceiveFrom(buffer, length, 0, length, SocketFlags::None, endPoint);
}

void UdpClient::Close()
{
    RequiredClient().Close();
}

void UdpClient::Connect(const IPEndPoint& endPoint)
{
    RequiredClient().Connect(endPoint);
}

void UdpClient::Connect(const IPAddress& address, int port)
{
    Connect(IPEndPoint(address, port));
}

void UdpClient::Connect(const String& hostName, int port)
{
    Connect(Resolve(hostName, port));
}

void UdpClient::JoinMulticastGroup(const IPAddress& group)
{
    if (IsIPv6(group))
    {
        JoinMulticastGroup(IPv6MulticastOption(group));
    }
    else
    {
        JoinMulticastGroup(MulticastOption(group));
    }
}

void UdpClient::JoinMulticastGroup(const IPAddress& group, const IPAddress& localAddress)
{
    JoinMulticastGroup(MulticastOption(group, localAddress));
}

void UdpClient::JoinMulticastGroup(int interfaceIndex, const IPAddress& group)
{
    JoinMulticastGroup(IPv6MulticastOption(group, interfaceIndex));
}

void UdpClient::JoinMulticastGroup(const MulticastOption& option)
{
    RequiredClient().SetSocketOption(SocketOptionLevel::IP, SocketOptionName::AddMembership, option);
}

void UdpClient::JoinMulticastGroup(const IPv6MulticastOption& option)
{
    RequiredClient().SetSocketOption(SocketOptionLevel::IPv6, SocketOptionName::AddMembership, option);
}

void UdpClient::DropMulticastGroup(const IPAddress& group)
{
    if (IsIPv6(group))
    {
        DropMulticastGroup(IPv6MulticastOption(group));
    }
    else
    {
        DropMulticastGroup(MulticastOption(group));
    }
}

void UdpClient::DropMulticastGroup(const IPAddress& group, int interfaceIndex)
{
    DropMulticastGroup(IPv6MulticastOption(group, interfaceIndex));
}

void UdpClient::DropMulticastGroup(const MulticastOption& option)
{
    RequiredClient().SetSocketOption(SocketOptionLevel::IP, SocketOptionName::DropMembership, option);
}

void UdpClient::DropMulticastGroup(const IPv6MulticastOption& option)
{
    RequiredClient().SetSocketOption(SocketOptionLevel::IPv6, SocketOptionName::DropMembership, option);
}

Socket& UdpClient::RequiredClient() const
{
    if (client == null)
    {
        throw NullReferenceException(ThrowSite);
    }
    return *client;
}
} // namespace Tesmo::System::Net::Sockets
