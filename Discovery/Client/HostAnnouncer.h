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
/// tried again. Any thread, as far as the functions allow it that it is given.
class HostAnnouncer
{
public:
    /// What an announcer stands on.
    struct Links
    {
        Tesmo::Sp<IDiscoverySocket> socket;                               ///< of all adapters; the goodbye does without
        Tesmo::Sp<IDiscoverySocketFactory> socketFactory;                 ///< for sockets that are bound to one address
        std::function<Tesmo::Sp<IBroadcastProvider>()> broadcastProvider; ///< asked before each send; may give none
        std::function<void()> reportDeadSocket; ///< called for each send that failed in such a way
    };

    /// @param ownersChannel  where it logs; it must outlive this object
    /// @throws std::exception  the socket factory is empty
    HostAnnouncer(const DiscoveryChannel& ownersChannel, const Links& ownersLinks);

    /// Sends a message about the host: by the shared socket, or one of its own for a goodbye, where the host has one
    /// adapter; else from a socket for each of its adapters that can have one. Where none can, one message goes out that
    /// names no adapter.
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
