#include "ByeMessage.h"

namespace Zelkor::Discovery
{
ByeMessage::ByeMessage(const Tesmo::System::Version& version, const DiscoveryHost& host)
    : SignatureBroadcastMessage(version, host, true)
{
}

ByeMessage::ByeMessage(const Tesmo::System::Version& version, const DiscoveryHost& host,
                       const Tesmo::Sp<NICConfig>& sourceNIC)
    : SignatureBroadcastMessage(version, host, sourceNIC, true)
{
}

DiscoveryMessageType ByeMessage::GetMessageType() const
{
    return DiscoveryMessageType::Bye;
}
} // namespace Zelkor::Discovery
