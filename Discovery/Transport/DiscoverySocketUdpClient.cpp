#include "DiscoverySocketUdpClient.h"

#include <Core/System/Net/Sockets/SocketException.h>
#include <Core/System/ObjectClosedException.h>

namespace Zelkor::Discovery
{
using Tesmo::Sp, Tesmo::Up, Tesmo::System::ObjectClosedException, Tesmo::System::Net::EndPoint,
    Tesmo::System::Net::IPAddress, Tesmo::System::Net::IPEndPoint, Tesmo::System::Net::Sockets::AddressFamily,
    Tesmo::System::Net::Sockets::ProtocolType, Tesmo::System::Net::Sockets::Socket,
    Tesmo::System::Net::Sockets::SocketException, Tesmo::System::Net::Sockets::SocketOptionLevel,
    Tesmo::System::Net::Sockets::SocketOptionName, Tesmo::System::Net::Sockets::SocketShutdown,
    Tesmo::System::Net::Sockets::SocketType, Tesmo::System::Net::Sockets::UdpClient;

namespace
{
constexpr int ReceiveBufferSize = 65536; // bytes

Sp<UdpClient> MakeClient(const Sp<EndPoint>& local, void (Socket::*bind)(const Sp<EndPoint>&))
{
    const Sp<Socket> socket(new Socket(AddressFamily::InterNetwork, SocketType::Dgram, ProtocolType::Udp));
    socket->SetSocketOption(SocketOptionLevel::Socket, SocketOptionName::ReuseAddress, true);
    socket->SetSocketOption(SocketOptionLevel::Socket, SocketOptionName::ReceiveBuffer, ReceiveBufferSize);
    (*socket.*bind)(local);
    const Sp<UdpClient> client(new UdpClient);
    client->Client(socket);
    return client;
}
} // namespace

DiscoverySocketUdpClient::DiscoverySocketUdpClient(int boundPort, int targetPort)
    : DiscoverySocketUdpClient(boundPort, targetPort, IPAddress::Any)
{
}

DiscoverySocketUdpClient::DiscoverySocketUdpClient(int boundPort, int targetPort, const IPAddress& address)
    : DiscoverySocketUdpClient(boundPort, targetPort, address, &Socket::Bind)
{
}

DiscoverySocketUdpClient::DiscoverySocketUdpClient(int boundPort, int targetPort, const IPAddress& address, Bind bind)
    : localPort(boundPort),
      remotePort(targetPort),
      client(MakeClient(Sp<EndPoint>(new IPEndPoint(address, boundPort)), bind))
{
    localPort = dynamic_cast<const IPEndPoint&>(client->Client()->LocalEndPoint()).Port();
}

Sp<DiscoverySocketUdpClient> DiscoverySocketUdpClient::ForSending(int boundPort, int targetPort,
                                                                  const IPAddress& address)
{
    return Sp<DiscoverySocketUdpClient>(
        new DiscoverySocketUdpClient(boundPort, targetPort, address, &Socket::BindForSending));
}

DiscoverySocketUdpClient::~DiscoverySocketUdpClient()
{
    try
    {
        if (!closed)
        {
            Shutdown();
        }
    }
    catch (const ObjectClosedException&)
    {
        // closed meanwhile by a caller of GetSocket: nothing is left to shut down
    }
    catch (const SocketException&)
    {
        // the close below wakes and releases as well
    }
    Close();
}

Sp<Socket> DiscoverySocketUdpClient::GetSocket()
{
    return client->Client();
}

int DiscoverySocketUdpClient::Receive(const Up<unsigned char[]>& buffer, int size, IPEndPoint& endpoint)
{
    return client->Receive(buffer, size, endpoint);
}

int DiscoverySocketUdpClient::SendTo(const Up<unsigned char[]>& buffer, int size, const IPAddress& address)
{
    return client->Send(buffer, size, IPEndPoint(address, remotePort));
}

int DiscoverySocketUdpClient::Broadcast(const Up<unsigned char[]>& buffer, int size)
{
    return client->Send(buffer, size, IPEndPoint(IPAddress::Broadcast, remotePort));
}

void DiscoverySocketUdpClient::Shutdown()
{
    if (shutDown)
    {
        return;
    }
    const Sp<Socket> socket = client->Client();
    if (socket != Tesmo::null)
    {
        socket->Shutdown(SocketShutdown::Both);
        shutDown = true;
    }
}

bool DiscoverySocketUdpClient::IsShutDown() const
{
    return shutDown;
}

void DiscoverySocketUdpClient::Close()
{
    if (closed)
    {
        return;
    }
    client->Close();
    closed = true;
}

bool DiscoverySocketUdpClient::IsShutDownFlag() const
{
    return shutDown;
}

bool DiscoverySocketUdpClient::IsClosed() const
{
    return closed;
}

int DiscoverySocketUdpClient::GetLocalPort() const
{
    return localPort;
}

int DiscoverySocketUdpClient::GetRemotePort() const
{
    return remotePort;
}
} // namespace Zelkor::Discovery
