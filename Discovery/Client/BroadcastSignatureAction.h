#pragma once

#include <Discovery/Client/ClientAction.h>
#include <Discovery/Protocol/DiscoveryHost.h>

namespace Zelkor::Discovery::Client
{
/// The task to send a signature.
class BroadcastSignatureAction : public ClientAction
{
public:
    /// A host is not needed: what is sent is read anew.
    BroadcastSignatureAction() : ClientAction(ClientActionType::BroadcastSignature) {}
    /// Copies the host.
    explicit BroadcastSignatureAction(const DiscoveryHost& host)
        : ClientAction(ClientActionType::BroadcastSignature),
          Host(host)
    {
    }

    DiscoveryHost Host; ///< as it stood when the task was made
};
} // namespace Zelkor::Discovery::Client
