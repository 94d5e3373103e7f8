#pragma once

#include <Core/System/String.h>
#include <Core/System/Up.h>

namespace Zelkor::Discovery
{
class DiscoveryMessage;

/// The messages. The number stays in memory; on the wire stands the name.
enum class DiscoveryMessageType
{
    SignatureBroadcast = 0,
    Hello = 1,
    Bye = 2,
    ChangeYourIPConfig = 3,
    SendYourSignature = 4,
    AllSendYourSignature = 5,
    ChangeYourHostName = 6,
};

/// @throws ArgumentException  there is no such type
const Tesmo::System::String& ToWireName(DiscoveryMessageType type);

/// The names are compared exactly.
/// @throws ArgumentException  there is no such name
DiscoveryMessageType FromWireName(const Tesmo::System::String& name);

/// A message of the class that the type stands for, as its default constructor makes it.
/// @throws FormatException  there is no such type; logged on the deserializer's channel
Tesmo::Up<DiscoveryMessage> MakeMessage(DiscoveryMessageType type);
} // namespace Zelkor::Discovery
