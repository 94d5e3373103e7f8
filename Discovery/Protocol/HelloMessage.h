#pragma once

#include <Discovery/Protocol/SignatureBroadcastMessage.h>

namespace Zelkor::Discovery
{
/// Tells everybody that a host has come up.
class HelloMessage : public SignatureBroadcastMessage
{
public:
    HelloMessage() = default;
    /// Copy the host; the second shares the adapter that the message leaves by.
    HelloMessage(const Tesmo::System::Version& version, const DiscoveryHost& host);
    HelloMessage(const Tesmo::System::Version& version, const DiscoveryHost& host,
                 const Tesmo::Sp<NICConfig>& sourceNIC);

    DiscoveryMessageType GetMessageType() const override;
};
} // namespace Zelkor::Discovery
