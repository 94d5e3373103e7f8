#pragma once

#include <Discovery/Protocol/DiscoveryMessage.h>

namespace Zelkor::Discovery
{
/// Asks every host that receives it for its signature.
class AllSendYourSignatureMessage : public DiscoveryMessage
{
public:
    AllSendYourSignatureMessage() = default;
    /// By broadcast.
    explicit AllSendYourSignatureMessage(const Tesmo::System::Version& version);

    DiscoveryMessageType GetMessageType() const override;
};
} // namespace Zelkor::Discovery
