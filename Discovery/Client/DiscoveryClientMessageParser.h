#pragma once

#include <Core/System/Collections/Generic/List.h>
#include <Discovery/Client/ClientAction.h>
#include <Discovery/Client/IDiscoveryClientDataGateway.h>
#include <Discovery/Pipeline/DiscoveryMessageParser.h>
#include <Discovery/Protocol/DiscoveryMessage.h>

namespace Zelkor::Discovery::Client
{
/// Decides for a client which messages are meant for this host and turns them into tasks. It does nothing to the host
/// and sends nothing.
class DiscoveryClientMessageParser : public DiscoveryMessageParser
{
public:
    /// @throws std::exception  gateway is empty
    explicit DiscoveryClientMessageParser(const Tesmo::Sp<IDiscoveryClientDataGateway>& gateway);
    DiscoveryClientMessageParser(const Tesmo::Sp<IDiscoveryClientDataGateway>& gateway,
                                 const Tesmo::System::String& channelName);

    /// Raised on the parser's thread, once for each accepted request, with a ClientActionArgs.
    Tesmo::System::EventHandler ActionRequested;

protected:
    void ProcessMessage(const Tesmo::System::String& text, const Tesmo::System::Net::IPAddress& sender) override;

private:
    using MACList = Tesmo::System::Collections::Generic::List<MACAddress>;
    using NICList = Tesmo::System::Collections::Generic::List<Tesmo::Sp<NICConfig>>;

    Tesmo::Sp<DiscoveryMessage> Deserialize(const Tesmo::System::String& text);
    void LogVersionMismatch(const DiscoveryMessage& message);
    bool IsMessageForMe(const DiscoveryMessage& message);
    bool HasMACAddress(const MACAddress& address);
    bool HasMACAddressOf(const NICList& configs);
    Tesmo::Sp<MACList> GetOwnAddresses();
    Tesmo::Sp<ClientAction> MakeAction(const DiscoveryMessage& message);

    Tesmo::Sp<IDiscoveryClientDataGateway> gateway;
};
} // namespace Zelkor::Discovery::Client
