#pragma once

#include <Core/System/Net/Sockets/UdpClient.h>
#include <Discovery/Transport/IDiscoverySocket.h>

#include <atomic>

namespace Zelkor::Discovery
{
/// The client's socket over UDP and IPv4. It shares its port with other sockets of the same kind, so that a
/// short-lived one can be bound to an adapter's address while the shared one is bound to all.
class DiscoverySocketUdpClient : public IDiscoverySocket
{
public:
    /// Bound to all adapters (0.0.0.0).
    /// @param boundPort   port to bind, 1 to 65535, or 0 for one that the system chooses and GetLocalPort tells
    /// @param targetPort port that every datagram is sent to, 0 to 65535
    /// @throws ArgumentOutOfRangeException  boundPort is above 65535
    /// @throws SocketException              a step failed, in most cases the bind; no socket stays behind
    DiscoverySocketUdpClient(int boundPort, int targetPort);

    /// Bound to one local address; otherwise the same.
    /// @throws ArgumentNullException  address is null
    DiscoverySocketUdpClient(int boundPort, int targetPort, const Tesmo::System::Net::IPAddress& address);

    /// A socket that sends from one local address, by the adapter that has it, and never takes what arrives for it.
    /// @throws ArgumentNullException  address is null
    static Tesmo::Sp<DiscoverySocketUdpClient> ForSending(int boundPort, int targetPort,
                                                          const Tesmo::System::Net::IPAddress& address);

    /// Shuts down and closes what is still open. Raises nothing: a failing shut-down gives way to the close.
    ~DiscoverySocketUdpClient() override;

    Tesmo::Sp<Tesmo::System::Net::Sockets::Socket> GetSocket() override;
    int Receive(const Tesmo::Up<unsigned char[]>& buffer, int size, Tesmo::System::Net::IPEndPoint& endpoint) override;
    int SendTo(const Tesmo::Up<unsigned char[]>& buffer, int size,
               const Tesmo::System::Net::IPAddress& address) override;
    int Broadcast(const Tesmo::Up<unsigned char[]>& buffer, int size) override;
    void Shutdown() override;
    bool IsShutDown() const override;
    void Close() override;
    bool IsShutDownFlag() const override;
    bool IsClosed() const override;
    int GetLocalPort() const override;
    int GetRemotePort() const override;

private:
    using Bind = void (Tesmo::System::Net::Sockets::Socket::*)(const Tesmo::Sp<Tesmo::System::Net::EndPoint>&);

    DiscoverySocketUdpClient(int boundPort, int targetPort, const Tesmo::System::Net::IPAddress& address, Bind bind);

    int localPort;
    int remotePort;
    Tesmo::Sp<Tesmo::System::Net::Sockets::UdpClient> client;
    std::atomic<bool> shutDown = false;
    std::atomic<bool> closed = false;
};
} // namespace Zelkor::Discovery
