#pragma once

#include <Discovery/Protocol/SignatureBroadcastMessage.h>

namespace Zelkor::Discovery
{
/// A host has come up. It goes to all.
class HelloMessage : public SignatureBroadcastMessage
{
public:
    HelloMessage() = default;
    /// Copies the host.
    HelloMessage(const Tesmo::System::Version& version, const DiscoveryHost& host);
    /// Copies the host and shares the interface.
    HelloMessage(const Tesmo::System::Version& version, const DiscoveryHost& host,
                 const Tesmo::Sp<NICConfig>& sourceNIC);

    DiscoveryMessageType GetMessageType() const override;
};
} // namespace Zelkor::Discovery
