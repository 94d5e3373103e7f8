#pragma once

#include <Discovery/Protocol/DiscoveryMessage.h>
#include <Discovery/Protocol/MACAddress.h>

namespace Zelkor::Discovery
{
/// Asks one host to take another name.
class ChangeYourHostNameMessage : public DiscoveryMessage
{
public:
    ChangeYourHostNameMessage() = default;
    /// To one address: Broadcast is false.
    ChangeYourHostNameMessage(const Tesmo::System::Version& version, const Tesmo::System::String& newHostName);
    /// By broadcast, to the host with the hardware address.
    ChangeYourHostNameMessage(const Tesmo::System::Version& version, const Tesmo::System::String& newHostName,
                              const MACAddress& targetedMACAddress);

    DiscoveryMessageType GetMessageType() const override;
    void WriteJSON(Serialization::Json::JSONStringer& stringer) const override;
    void ReadObject(const Serialization::Json::JSONObject& object) override;

    MACAddress TargetedMACAddress; ///< neither written nor read unless Broadcast is true
    Tesmo::System::String NewHostName;
};
} // namespace Zelkor::Discovery
