#include <Discovery/Protocol/ChangeYourHostNameMessage.h>

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
const String newHostNameKey = "NewHostName";
const String targetedMACAddressKey = "TargetedMACAddress";

void LogCritical(const char* text)
{
    DiscoveryLogger::Instance().Write(LogStreamChannel("ChangeYourHostNameMessage"), text, LogStreamLevel::Critical);
}
} // namespace

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
    stringer.Key(newHostNameKey).Value(NewHostName);
    if (Broadcast)
    {
        stringer.Key(targetedMACAddressKey).Value(TargetedMACAddress.ToString());
    }
}

void ChangeYourHostNameMessage::ReadJSON(const String& text)
{
    DiscoveryMessage::ReadJSON(text);
    const JSONObject object(text);
    if (!object.TryGetValue(newHostNameKey, NewHostName))
    {
        LogCritical("No \"New HostName\" key !!! => BAD MESSAGE FORMAT !");
        throw FormatException(ThrowSite);
    }
    if (!Broadcast)
    {
        return;
    }
    String address;
    if (!object.TryGetValue(targetedMACAddressKey, address))
    {
        LogCritical("No \"Targeted MACAddress\" key !!! => BAD MESSAGE FORMAT !");
        throw FormatException(ThrowSite);
    }
    TargetedMACAddress = MACAddress(address);
}
} // namespace Zelkor::Discovery
