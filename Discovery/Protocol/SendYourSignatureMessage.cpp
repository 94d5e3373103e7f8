#include "SendYourSignatureMessage.h"

#include <Discovery/Protocol/MessageKey.h>

namespace Zelkor::Discovery
{
using Serialization::Json::JSONObject, Serialization::Json::JSONStringer;
using Tesmo::System::String;

SendYourSignatureMessage::SendYourSignatureMessage(const Tesmo::System::Version& version)
    : DiscoveryMessage(version, false)
{
}

SendYourSignatureMessage::SendYourSignatureMessage(const Tesmo::System::Version& version,
                                                   const MACAddress& targetedMACAddress)
    : DiscoveryMessage(version, true),
      TargetedMACAddress(targetedMACAddress)
{
}

DiscoveryMessageType SendYourSignatureMessage::GetMessageType() const
{
    return DiscoveryMessageType::SendYourSignature;
}

void SendYourSignatureMessage::WriteJSON(JSONStringer& stringer) const
{
    DiscoveryMessage::WriteJSON(stringer);
    if (Broadcast)
    {
        stringer.Key(SignatureTargetKey.name).Value(TargetedMACAddress.ToString());
    }
}

void SendYourSignatureMessage::ReadObject(const JSONObject& object)
{
    DiscoveryMessage::ReadObject(object);
    if (!Broadcast)
    {
        return;
    }
    String address;
    SignatureTargetKey.Read(object, address);
    TargetedMACAddress = MACAddress(address);
}
} // namespace Zelkor::Discovery
