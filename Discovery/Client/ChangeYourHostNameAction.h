#pragma once

#include <Core/System/String.h>
#include <Discovery/Client/ClientAction.h>

namespace Zelkor::Discovery::Client
{
/// The task to take another host name.
class ChangeYourHostNameAction : public ClientAction
{
public:
    /// @param hostName  as it was asked for; the gateway judges it
    explicit ChangeYourHostNameAction(const Tesmo::System::String& hostName)
        : ClientAction(ClientActionType::ChangeYourHostName),
          HostName(hostName)
    {
    }

    Tesmo::System::String HostName;
};
} // namespace Zelkor::Discovery::Client
