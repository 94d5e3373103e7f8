#pragma once

#include <Discovery/Protocol/DiscoveryMessage.h>
#include <Discovery/Protocol/MACAddress.h>

namespace Zelkor::Discovery
{
/// Asks one host for its signature.
class SendYourSignatureMessage : public DiscoveryMessage
{
public:
    SendYourSignatureMessage() = default;
    /// To one address: Broadcast is false.
    explicit SendYourSignatureMessage(const Tesmo::System::Version& version);
    /// By broadcast, to the host with the hardware address.
    SendYourSignatureMessage(const Tesmo::System::Version& version, const MACAddress& targetedMACAddress);

    DiscoveryMessageType GetMessageType() const override;
    void WriteJSON(Serialization::Json::JSONStringer& stringer) const override;
    void ReadObject(const Serialization::Json::JSONObject& object) override;

    MACAddress TargetedMACAddress; ///< neither written nor read unless Broadcast is true
};
} // namespace Zelkor::Discovery
