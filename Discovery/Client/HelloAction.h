#pragma once

#include <Discovery/Client/ClientAction.h>
#include <Discovery/Protocol/DiscoveryHost.h>

namespace Zelkor::Discovery::Client
{
/// The task to say hello.
class HelloAction : public ClientAction
{
public:
    /// Copies the host.
    explicit HelloAction(const DiscoveryHost& host) : ClientAction(ClientActionType::Hello), Host(host) {}

    DiscoveryHost Host; ///< as it stood when the task was made; what is sent is read anew
};
} // namespace Zelkor::Discovery::Client
