#include "AllSendYourSignatureMessage.h"

namespace Zelkor::Discovery
{
AllSendYourSignatureMessage::AllSendYourSignatureMessage(const Tesmo::System::Version& version)
    : DiscoveryMessage(version)
{
}

DiscoveryMessageType AllSendYourSignatureMessage::GetMessageType() const
{
    return DiscoveryMessageType::AllSendYourSignature;
}
} // namespace Zelkor::Discovery
