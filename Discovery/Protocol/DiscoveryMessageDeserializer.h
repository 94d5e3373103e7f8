#pragma once

#include <Discovery/Protocol/DiscoveryMessage.h>
#include <Serialization.Json/IJSONSerializer.h>

namespace Zelkor::Discovery
{
/// Turns the text of a received datagram into a message of the right class. It holds nothing; any number of threads may
/// share one.
class DiscoveryMessageDeserializer : public Serialization::Json::IJSONSerializer<DiscoveryMessage>
{
public:
    using IJSONSerializer::Serialize;

    /// @throws FormatException    the text is no object, or lacks what its type asks for
    /// @throws ArgumentException  the type is unknown
    /// @throws Exception          any failure of the message's ReadJSON
    Tesmo::Up<DiscoveryMessage> Deserialize(const Tesmo::System::String& text) override;
    Tesmo::Up<DiscoveryMessage> Deserialize(const Serialization::Json::JSONObject& object) override;

    /// Writes the keys of the message into an object that the caller has opened.
    void Serialize(const DiscoveryMessage& message, Serialization::Json::JSONStringer& stringer) override;
};
} // namespace Zelkor::Discovery
