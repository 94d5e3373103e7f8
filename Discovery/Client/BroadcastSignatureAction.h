#pragma once

#include <Discovery/Client/ClientAction.h>
#include <Discovery/Protocol/DiscoveryHost.h>

namespace Zelkor::Discovery::Client
{
/// Send a signature.
class BroadcastSignatureAction : public ClientAction
{
public:
    BroadcastSignatureAction() : ClientAction(ClientActionType::BroadcastSignature) {}
    explicit BroadcastSignatureAction(const DiscoveryHost& host)
        : ClientAction(ClientActionType::BroadcastSignature),
          Host(host)
    {
    }

    DiscoveryHost Host; ///< as it stood when the task was made; what is sent is read anew
};
} // namespace Zelkor::Discovery::Client
