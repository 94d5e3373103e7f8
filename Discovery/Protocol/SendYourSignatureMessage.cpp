#include <Discovery/Protocol/SendYourSignatureMessage.h>

#include <Core/System/FormatException.h>
#include <Core/System/ThrowSite.h>
#include <Discovery/Protocol/DiscoveryLogger.h>
#include <Serialization.Json/JSONObject.h>

namespace Zelkor::Discovery
{
using Serialization::Json::JSONObject;
using Serialization::Json::JSONStringer;
using Tesmo::System::FormatException;
using Tesmo::System::String;
using Tesmo::System::LogStreams::LogStreamChannel;
using Tesmo::System::LogStreams::LogStreamLevel;

namespace
{
const String targetedMACAddressKey = "TargetedMACAddress";
} // namespace

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
        stringer.Key(targetedMACAddressKey).Value(TargetedMACAddress.ToString());
    }
}

void SendYourSignatureMessage::ReadJSON(const String& text)
{
    DiscoveryMessage::ReadJSON(text);
    if (!Broadcast)
    {
        return;
    }
    String address;
    if (!JSONObject(text).TryGetValue(targetedMACAddressKey, address))
    {
        DiscoveryLogger::Instance().Write(LogStreamChannel("SendYourSignatureMessage"),
                                          "No targeted MAC address !!! => BAD MESSAGE FORMAT !",
                                          LogStreamLevel::Critical);
        throw FormatException(ThrowSite);
    }
    TargetedMACAddress = MACAddress(address);
}
} // namespace Zelkor::Discovery
