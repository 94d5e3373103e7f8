#pragma once

#include <Core/System/String.h>
#include <Core/System/Version.h>
#include <Discovery/Protocol/DiscoveryMessageType.h>
#include <Serialization.Json/JSONObject.h>
#include <Serialization.Json/JSONStringer.h>

namespace Zelkor::Discovery
{
/// Root of the messages: one JSON object a datagram, whose first keys are common to all. A message is made, written
/// once and dropped, or made, read once and dropped, by one thread at a time.
///
/// A reader ignores the order of the keys, the case of their letters, and keys that it doesn't know.
class DiscoveryMessage
{
public:
    virtual ~DiscoveryMessage() = default;

    /// The type that the class stands for.
    virtual DiscoveryMessageType GetMessageType() const = 0;

    /// The whole text of the message, without a blank between the tokens.
    virtual Tesmo::System::String ToJSON() const;

    /// Writes the keys of this class into the open object.
    virtual void WriteJSON(Serialization::Json::JSONStringer& stringer) const;

    /// Fills the message from the whole text of a message, which is parsed once. What was read before a failure stays.
    /// @throws FormatException  the text is no object, or a key that this class needs is missing or has a bad value
    /// @throws Exception        a nested record or the version can't be read: the failure of its own reading
    virtual void ReadJSON(const Tesmo::System::String& text);

    /// Reads the keys of this class from the object that all classes of a message share.
    virtual void ReadObject(const Serialization::Json::JSONObject& object);

    /// The type of a message from its text, or from its object.
    /// @throws FormatException    the text is no object, or has no type
    /// @throws ArgumentException  the type is unknown
    static DiscoveryMessageType ParseMessageType(const Tesmo::System::String& text);
    static DiscoveryMessageType ParseMessageType(const Serialization::Json::JSONObject& object);

    Tesmo::System::Version Version; ///< of the protocol
    /// True when the datagram may reach every host: then a request that concerns one carries that host's hardware
    /// address. False when it goes to one address.
    bool Broadcast = true;

protected:
    /// Of the program's own version and by broadcast, where nothing else is given.
    DiscoveryMessage();
    explicit DiscoveryMessage(const Tesmo::System::Version& version);
    DiscoveryMessage(const Tesmo::System::Version& version, bool broadcast);
    DiscoveryMessage(const DiscoveryMessage&) = default;
    DiscoveryMessage& operator=(const DiscoveryMessage&) = default;
};
} // namespace Zelkor::Discovery
