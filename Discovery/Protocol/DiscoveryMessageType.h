#pragma once

#include <Core/System/String.h>

namespace Zelkor::Discovery
{
/// The seven messages. The number stays in memory; on the wire stands the name.
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

/// @throws ArgumentException  type is none of the seven
const Tesmo::System::String& ToWireName(DiscoveryMessageType type);

/// The names are compared exactly.
/// @throws ArgumentException  name is none of the seven
DiscoveryMessageType FromWireName(const Tesmo::System::String& name);
} // namespace Zelkor::Discovery
