#include "DiscoveryMessageDeserializer.h"

namespace Zelkor::Discovery
{
using Serialization::Json::JSONObject, Serialization::Json::JSONStringer;
using Tesmo::Up, Tesmo::System::String;

Up<DiscoveryMessage> DiscoveryMessageDeserializer::Deserialize(const String& text)
{
    const JSONObject object(text);
    Up<DiscoveryMessage> message = MakeMessage(DiscoveryMessage::ParseMessageType(object));
    message->ReadObject(object);
    return message;
}

Up<DiscoveryMessage> DiscoveryMessageDeserializer::Deserialize(const JSONObject& object)
{
    return Deserialize(object.ToString());
}

void DiscoveryMessageDeserializer::Serialize(const DiscoveryMessage& message, JSONStringer& stringer)
{
    message.WriteJSON(stringer);
}
} // namespace Zelkor::Discovery
