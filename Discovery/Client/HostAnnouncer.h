#pragma once

#include <Core/System/Net/IPAddress.h>
#include <Core/System/Net/Sockets/SocketException.h>
#include <Core/System/Sp.h>
#include <Core/System/String.h>
#include <Discovery/Log/DiscoveryChannel.h>
#include <Discovery/Pipeline/IBroadcastProvider.h>
#include <Discovery/Protocol/DiscoveryHost.h>
#include <Discovery/Protocol/DiscoveryMessage.h>
#include <Discovery/Transport/IDiscoverySocketFactory.h>

#include <functional>

namespace Zelkor::Discovery::Client
{
/// Says hello, goodbye and who the host is: one datagram by each of its adapters. A send that fails is logged and never
/// tried again. Any thread may use it if the functions of its links allow that.
class HostAnnouncer
{
public:
    /// What an announcer stands on.
    struct Links
    {
        Tesmo::Sp<IDiscoverySocket> socket;                               ///< of all adapters; the goodbye does without
        Tesmo::Sp<IDiscoverySocketFactory> socketFactory;                 ///< for sockets that are bound to one address
        std::function<Tesmo::Sp<IBroadcastProvider>()> broadcastProvider; ///< asked before each send; may give none
        std::function<void()> reportDeadSocket; ///< called after a send that shows that the socket is dead
    };

    /// @param ownersChannel  where it logs; it must outlive this object
    /// @throws std::exception  the socket factory is empty
    HostAnnouncer(const DiscoveryChannel& ownersChannel, const Links& ownersLinks);

    /// Sends a message about the host. One adapter: from the shared socket, a goodbye from a socket of its own. Several:
    /// from a socket bound to the address of each, those left out that can't be bound. None, or none that can be bound:
    /// one message that names no adapter, as from one.
    /// @param type  SignatureBroadcast, Hello or Bye
    void SendHostMessage(const DiscoveryHost& host, const Tesmo::System::Net::IPAddress& address,
                         DiscoveryMessageType type) const;

private:
    int SendFromEachAdapter(const DiscoveryHost& host, const Tesmo::System::Net::IPAddress& address,
                            DiscoveryMessageType type) const;
    Tesmo::Sp<IDiscoverySocket> CreateSocket(const Tesmo::System::Net::IPAddress& localAddress) const;
    void SendMessage(const DiscoveryMessage& message, const Tesmo::System::Net::IPAddress& address,
                     IDiscoverySocket& socket) const;
    void SendText(const Tesmo::System::String& json, const Tesmo::System::Net::IPAddress& address,
                  IDiscoverySocket& socket) const;
    void HandleFailure(const Tesmo::System::Net::Sockets::SocketException& failure) const;

    const DiscoveryChannel& channel;
    const Links links;
};
} // namespace Zelkor::Discovery::Client
