#include "ChangeYourHostNameMessage.h"

#include <Discovery/Protocol/MessageKey.h>

namespace Zelkor::Discovery
{
using Serialization::Json::JSONObject, Serialization::Json::JSONStringer;
using Tesmo::System::String;

ChangeYourHostNameMessage::ChangeYourHostNameMessage(const Tesmo::System::Version& version, const String& newHostName)
    : DiscoveryMessage(version, false),
      NewHostName(newHostName)
{
}

ChangeYourHostNameMessage::ChangeYourHostNameMessage(const Tesmo::System::Version& version, const String& newHostName,
                                                     const MACAddress& targetedMACAddress)
    : DiscoveryMessage(version, true),
      TargetedMACAddress(targetedMACAddress),
      NewHostName(newHostName)
{
}

DiscoveryMessageType ChangeYourHostNameMessage::GetMessageType() const
{
    return DiscoveryMessageType::ChangeYourHostName;
}

void ChangeYourHostNameMessage::WriteJSON(JSONStringer& stringer) const
{
    DiscoveryMessage::WriteJSON(stringer);
    stringer.Key(NewHostNameKey.name).Value(NewHostName);
    if (Broadcast)
    {
        stringer.Key(HostNameTargetKey.name).Value(TargetedMACAddress.ToString());
    }
}

void ChangeYourHostNameMessage::ReadObject(const JSONObject& object)
{
    DiscoveryMessage::ReadObject(object);
    NewHostNameKey.Read(object, NewHostName);
    if (!Broadcast)
    {
        return;
    }
    String address;
    HostNameTargetKey.Read(object, address);
    TargetedMACAddress = MACAddress(address);
}
} // namespace Zelkor::Discovery
