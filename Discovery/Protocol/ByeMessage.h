#pragma once

#include <Discovery/Protocol/SignatureBroadcastMessage.h>

namespace Zelkor::Discovery
{
/// Tells everybody that a host goes down.
class ByeMessage : public SignatureBroadcastMessage
{
public:
    ByeMessage() = default;
    /// Copy the host; the second shares the adapter that the message leaves by.
    ByeMessage(const Tesmo::System::Version& version, const DiscoveryHost& host);
    ByeMessage(const Tesmo::System::Version& version, const DiscoveryHost& host, const Tesmo::Sp<NICConfig>& sourceNIC);

    DiscoveryMessageType GetMessageType() const override;
};
} // namespace Zelkor::Discovery
