#include "HelloMessage.h"

namespace Zelkor::Discovery
{
HelloMessage::HelloMessage(const Tesmo::System::Version& version, const DiscoveryHost& host)
    : SignatureBroadcastMessage(version, host, true)
{
}

HelloMessage::HelloMessage(const Tesmo::System::Version& version, const DiscoveryHost& host,
                           const Tesmo::Sp<NICConfig>& sourceNIC)
    : SignatureBroadcastMessage(version, host, sourceNIC, true)
{
}

DiscoveryMessageType HelloMessage::GetMessageType() const
{
    return DiscoveryMessageType::Hello;
}
} // namespace Zelkor::Discovery
