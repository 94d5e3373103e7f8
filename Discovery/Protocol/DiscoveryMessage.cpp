#include "DiscoveryMessage.h"

#include <Core/System/Boolean.h>
#include <Discovery/Protocol/DiscoveryVersion.h>
#include <Discovery/Protocol/MessageKey.h>

namespace Zelkor::Discovery
{
using Serialization::Json::JSONObject, Serialization::Json::JSONStringer;
using Tesmo::System::Boolean, Tesmo::System::String;

namespace
{
/// The flag is a string on the wire; a real JSON boolean counts as missing.
bool ReadBroadcast(const JSONObject& object)
{
    String text;
    if (!object.TryGetValue(BroadcastKey.name, text))
    {
        DiscoveryChannel(BroadcastKey.channel).Debug("No Broadcast key. Assuming broadcast message.");
        return true;
    }
    bool broadcast = true;
    BroadcastKey.Check(Boolean::TryParse(text, broadcast));
    return broadcast;
}
} // namespace

DiscoveryMessage::DiscoveryMessage() : DiscoveryMessage(DiscoveryVersion()) {}

DiscoveryMessage::DiscoveryMessage(const Tesmo::System::Version& version) : DiscoveryMessage(version, true) {}

DiscoveryMessage::DiscoveryMessage(const Tesmo::System::Version& version, bool broadcast)
    : Version(version),
      Broadcast(broadcast)
{
}

String DiscoveryMessage::ToJSON() const
{
    JSONStringer stringer;
    stringer.BeginObject();
    WriteJSON(stringer);
    return stringer.EndObject().TakeText();
}

void DiscoveryMessage::WriteJSON(JSONStringer& stringer) const
{
    stringer.Key(MessageTypeKey.name).Value(ToWireName(GetMessageType()));
    stringer.Key(VersionKey.name).Value(Version.ToString());
    stringer.Key(BroadcastKey.name).Value(Boolean(Broadcast).ToString());
}

void DiscoveryMessage::ReadJSON(const String& text)
{
    ReadObject(JSONObject(text));
}

void DiscoveryMessage::ReadObject(const JSONObject& object)
{
    String value;
    MessageTypeKey.Read(object, value);
    VersionKey.Read(object, value);
    Version = Tesmo::System::Version::Parse(value);
    Broadcast = ReadBroadcast(object);
}

DiscoveryMessageType DiscoveryMessage::ParseMessageType(const String& text)
{
    return ParseMessageType(JSONObject(text));
}

DiscoveryMessageType DiscoveryMessage::ParseMessageType(const JSONObject& object)
{
    String name;
    MessageTypeKey.Read(object, name);
    return FromWireName(name);
}
} // namespace Zelkor::Discovery
