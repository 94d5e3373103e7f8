#include "HostAnnouncer.h"

#include <Core/System/ObjectClosedException.h>
#include <Discovery/Pipeline/Required.h>
#include <Discovery/Protocol/ByeMessage.h>
#include <Discovery/Protocol/DiscoveryVersion.h>
#include <Discovery/Protocol/HelloMessage.h>

#include <algorithm>
#include <iterator>

namespace Zelkor::Discovery::Client
{
using Tesmo::null, Tesmo::Sp, Tesmo::Up, Tesmo::System::Exception, Tesmo::System::ObjectClosedException,
    Tesmo::System::String, Tesmo::System::Net::IPAddress, Tesmo::System::Net::Sockets::SocketError,
    Tesmo::System::Net::Sockets::SocketException;

namespace
{
struct SendFailure
{
    int code;
    const char* text;
    bool isFatal; ///< the socket is dead
};

constexpr SendFailure SendFailures[] = {
    {SocketError::Shutdown, "Message not sent : socket shut down", true},
    {SocketError::Interrupted, "Message not sent : socket interrupted", true},
    {SocketError::NotSocket, "Socket error : Operation attempted on a non-socket object.", true},
    {SocketError::AddressNotAvailable, "Message not sent : address not available.", false},
    {SocketError::NetworkUnreachable, "Message not sent : network unreachable.", false},
    {SocketError::ConnectionReset, "Socket error : remote peer returned a \"Port Unreachable\" ICMP packet.", false},
};

Sp<SignatureBroadcastMessage> BuildMessage(const DiscoveryHost& host, const Sp<NICConfig>& sourceNIC,
                                           const IPAddress& address, DiscoveryMessageType type)
{
    switch (type)
    {
    case DiscoveryMessageType::Hello:
        return Sp<SignatureBroadcastMessage>(new HelloMessage(DiscoveryVersion(), host, sourceNIC));
    case DiscoveryMessageType::Bye:
        return Sp<SignatureBroadcastMessage>(new ByeMessage(DiscoveryVersion(), host, sourceNIC));
    default:
        return Sp<SignatureBroadcastMessage>(
            new SignatureBroadcastMessage(DiscoveryVersion(), host, sourceNIC, address == IPAddress::Broadcast));
    }
}
} // namespace

HostAnnouncer::HostAnnouncer(const DiscoveryChannel& ownersChannel, const Links& ownersLinks)
    : channel(ownersChannel),
      links(ownersLinks)
{
    Required(links.socketFactory);
}

void HostAnnouncer::SendHostMessage(const DiscoveryHost& host, const IPAddress& address,
                                    DiscoveryMessageType type) const
{
    const bool hasOneAdapter = host.NICs->Count() == 1;
    if (!hasOneAdapter && SendFromEachAdapter(host, address, type) > 0)
    {
        return;
    }
    // The shared socket may be closed when the goodbye goes out (decision 127).
    const Sp<IDiscoverySocket> socket =
        type == DiscoveryMessageType::Bye ? CreateSocket(IPAddress::Any) : Required(links.socket);
    if (socket != null)
    {
        const Sp<NICConfig> sourceNIC = hasOneAdapter ? (*host.NICs)[0] : Sp<NICConfig>();
        SendMessage(*BuildMessage(host, sourceNIC, address, type), address, *socket);
    }
}

/// @returns from how many
int HostAnnouncer::SendFromEachAdapter(const DiscoveryHost& host, const IPAddress& address,
                                       DiscoveryMessageType type) const
{
    int sent = 0;
    for (const Sp<NICConfig>& nic : *host.NICs)
    {
        const Sp<SignatureBroadcastMessage> message = BuildMessage(host, nic, address, type);
        const Sp<IDiscoverySocket> socket = CreateSocket(nic->IPAddress);
        if (socket != null)
        {
            SendMessage(*message, address, *socket);
            ++sent;
            socket->Close();
        }
    }
    return sent;
}

/// Empty where no socket can be bound to the address.
Sp<IDiscoverySocket> HostAnnouncer::CreateSocket(const IPAddress& localAddress) const
{
    try
    {
        return links.socketFactory->Create(localAddress);
    }
    catch (const Exception& failure)
    {
        channel.Critical(String::Format("Exception caught while creating socket on address {0} ! ({1})", localAddress,
                                        failure.Message()),
                         failure);
        return {};
    }
}

void HostAnnouncer::SendMessage(const DiscoveryMessage& message, const IPAddress& address,
                                IDiscoverySocket& socket) const
{
    const String json = message.ToJSON();
    channel.Debug("Message (JSON) : " + json);
    try
    {
        SendText(json, address, socket);
        channel.Standard("Message sent");
    }
    catch (const SocketException& failure)
    {
        HandleFailure(failure);
    }
    catch (const ObjectClosedException& failure)
    {
        channel.Critical("Message not sent : socket closed", failure);
        links.reportDeadSocket();
    }
}

/// Sends the text in code page 437, without a zero at its end. The receiving side reads ISO 8859-1 all the same.
void HostAnnouncer::SendText(const String& json, const IPAddress& address, IDiscoverySocket& socket) const
{
    const Up<char[]> text = json.ToCCharArray();
    const int size = json.Length();
    Up<unsigned char[]> bytes(new unsigned char[static_cast<std::size_t>(size)]);
    std::transform(text.Get(), text.Get() + size, bytes.Get(), [](char c) { return static_cast<unsigned char>(c); });
    const Sp<IBroadcastProvider> provider = links.broadcastProvider();
    if (address == IPAddress::Broadcast && provider != null)
    {
        channel.Debug("Sending message using broadcast provider...");
        provider->Send(bytes, size);
    }
    else
    {
        socket.SendTo(bytes, size, address);
    }
}

void HostAnnouncer::HandleFailure(const SocketException& failure) const
{
    const int errorCode = failure.SocketErrorCode().Value();
    const auto* const known = std::find_if(std::begin(SendFailures), std::end(SendFailures),
                                           [errorCode](const SendFailure& row) { return row.code == errorCode; });
    const bool isKnown = known != std::end(SendFailures);
    const String text =
        isKnown ? String(known->text) : String::Format("Unexpected socket error  : {0} !", failure.Message());
    channel.Critical(text, failure);
    if (!isKnown || known->isFatal)
    {
        links.reportDeadSocket();
    }
}
} // namespace Zelkor::Discovery::Client
