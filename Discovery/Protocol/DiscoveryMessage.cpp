#include <Discovery/Protocol/DiscoveryMessage.h>

#include <Core/System/Boolean.h>
#include <Core/System/FormatException.h>
#include <Core/System/ThrowSite.h>
#include <Discovery/Protocol/DiscoveryLogger.h>
#include <Discovery/Protocol/DiscoveryVersion.h>
#include <Serialization.Json/JSONObject.h>

namespace Zelkor::Discovery
{
using Serialization::Json::JSONObject;
using Serialization::Json::JSONStringer;
using Tesmo::System::Boolean;
using Tesmo::System::FormatException;
using Tesmo::System::String;
using Tesmo::System::LogStreams::LogStreamChannel;
using Tesmo::System::LogStreams::LogStreamLevel;

namespace
{
const String typeKey = "DiscoveryMessageType";
const String versionKey = "DiscoveryVersion";
const String broadcastKey = "Broadcast";

void Log(const char* text, LogStreamLevel level)
{
    DiscoveryLogger::Instance().Write(LogStreamChannel("DiscoveryMessage"), text, level);
}

String ReadTypeName(const JSONObject& object)
{
    String name;
    if (!object.TryGetValue(typeKey, name))
    {
        Log("No message type key !!! => BAD MESSAGE FORMAT !", LogStreamLevel::Critical);
        throw FormatException(ThrowSite);
    }
    return name;
}

String ReadVersionText(const JSONObject& object)
{
    String version;
    if (!object.TryGetValue(versionKey, version))
    {
        Log("No version key !!! => BAD MESSAGE FORMAT !", LogStreamLevel::Critical);
        throw FormatException(ThrowSite);
    }
    return version;
}

/// The flag is a string on the wire; a real JSON boolean counts as missing.
bool ReadBroadcast(const JSONObject& object)
{
    String text;
    if (!object.TryGetValue(broadcastKey, text))
    {
        Log("No Broadcast key. Assuming broadcast message.", LogStreamLevel::Debug);
        return true;
    }
    bool broadcast = true;
    if (!Boolean::TryParse(text, broadcast))
    {
        Log("No valid value for Broadcast key !!! => BAD MESSAGE FORMAT !", LogStreamLevel::Critical);
        throw FormatException(ThrowSite);
    }
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
    return stringer.EndObject().ToString();
}

void DiscoveryMessage::WriteJSON(JSONStringer& stringer) const
{
    stringer.Key(typeKey).Value(ToWireName(GetMessageType()));
    stringer.Key(versionKey).Value(Version.ToString());
    stringer.Key(broadcastKey).Value(Boolean(Broadcast).ToString());
}

void DiscoveryMessage::ReadJSON(const String& text)
{
    const JSONObject object(text);
    ReadTypeName(object);
    Version = Tesmo::System::Version::Parse(ReadVersionText(object));
    Broadcast = ReadBroadcast(object);
}

DiscoveryMessageType DiscoveryMessage::ParseMessageType(const String& text)
{
    return FromWireName(ReadTypeName(JSONObject(text)));
}
} // namespace Zelkor::Discovery
