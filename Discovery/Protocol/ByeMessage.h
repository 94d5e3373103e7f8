#pragma once

#include <Discovery/Protocol/SignatureBroadcastMessage.h>

namespace Zelkor::Discovery
{
/// A host goes down. It goes to all.
class ByeMessage : public SignatureBroadcastMessage
{
public:
    ByeMessage() = default;
    /// Copies the host.
    ByeMessage(const Tesmo::System::Version& version, const DiscoveryHost& host);
    /// Copies the host and shares the interface.
    ByeMessage(const Tesmo::System::Version& version, const DiscoveryHost& host, const Tesmo::Sp<NICConfig>& sourceNIC);

    DiscoveryMessageType GetMessageType() const override;
};
} // namespace Zelkor::Discovery
