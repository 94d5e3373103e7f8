#pragma once

#include <Core/System/Collections/Generic/List.h>
#include <Discovery/Client/IDiscoveryClientDataGateway.h>
#include <Discovery/Pipeline/DiscoveryMessageParser.h>
#include <Discovery/Protocol/DiscoveryMessage.h>

#include <optional>
#include <vector>

namespace Zelkor::Discovery::Client
{
/// Decides for a client which messages are meant for this host and turns them into tasks. It does nothing to the host
/// and sends nothing.
class DiscoveryClientMessageParser : public DiscoveryMessageParser
{
public:
    /// @throws std::exception  host is empty
    explicit DiscoveryClientMessageParser(const Tesmo::Sp<IDiscoveryClientDataGateway>& host);
    DiscoveryClientMessageParser(const Tesmo::Sp<IDiscoveryClientDataGateway>& host,
                                 const Tesmo::System::String& channelName);

    /// Raised on the parser's thread, once for each accepted request, with a ClientActionArgs.
    Tesmo::System::EventHandler ActionRequested;

protected:
    void ProcessMessage(const Tesmo::System::String& text, const Tesmo::System::Net::IPAddress& sender) override;

private:
    using MACList = Tesmo::System::Collections::Generic::List<MACAddress>;

    Tesmo::Sp<DiscoveryMessage> Deserialize(const Tesmo::System::String& text);
    void LogVersionMismatch(const DiscoveryMessage& message);
    bool IsMessageForMe(const std::optional<std::vector<MACAddress>>& addressees);
    bool HasMACAddress(const std::vector<MACAddress>& addresses);
    Tesmo::Sp<MACList> GetOwnAddresses();

    Tesmo::Sp<IDiscoveryClientDataGateway> gateway;
};
} // namespace Zelkor::Discovery::Client
