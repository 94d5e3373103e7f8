#include <Discovery/Protocol/DiscoveryMessageDeserializer.h>

#include <Core/System/FormatException.h>
#include <Core/System/ThrowSite.h>
#include <Discovery/Log/DiscoveryChannel.h>
#include <Discovery/Protocol/AllSendYourSignatureMessage.h>
#include <Discovery/Protocol/ByeMessage.h>
#include <Discovery/Protocol/ChangeYourHostNameMessage.h>
#include <Discovery/Protocol/ChangeYourIPConfigMessage.h>
#include <Discovery/Protocol/HelloMessage.h>
#include <Discovery/Protocol/SendYourSignatureMessage.h>
#include <Discovery/Protocol/SignatureBroadcastMessage.h>

namespace Zelkor::Discovery
{
using Serialization::Json::JSONObject;
using Serialization::Json::JSONStringer;
using Tesmo::Up;
using Tesmo::System::FormatException;
using Tesmo::System::String;

namespace
{
Up<DiscoveryMessage> Create(DiscoveryMessageType type)
{
    switch (type)
    {
    case DiscoveryMessageType::SignatureBroadcast:
        return Up<DiscoveryMessage>(new SignatureBroadcastMessage());
    case DiscoveryMessageType::Hello:
        return Up<DiscoveryMessage>(new HelloMessage());
    case DiscoveryMessageType::Bye:
        return Up<DiscoveryMessage>(new ByeMessage());
    case DiscoveryMessageType::ChangeYourIPConfig:
        return Up<DiscoveryMessage>(new ChangeYourIPConfigMessage());
    case DiscoveryMessageType::SendYourSignature:
        return Up<DiscoveryMessage>(new SendYourSignatureMessage());
    case DiscoveryMessageType::AllSendYourSignature:
        return Up<DiscoveryMessage>(new AllSendYourSignatureMessage());
    case DiscoveryMessageType::ChangeYourHostName:
        return Up<DiscoveryMessage>(new ChangeYourHostNameMessage());
    }
    // For a type that has got a name but no class yet.
    DiscoveryChannel("DiscoveryMessageDeserializer").Critical("Message type not supported !!!");
    throw FormatException(ThrowSite);
}
} // namespace

Up<DiscoveryMessage> DiscoveryMessageDeserializer::Deserialize(const String& text)
{
    Up<DiscoveryMessage> message = Create(DiscoveryMessage::ParseMessageType(text));
    message->ReadJSON(text);
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
