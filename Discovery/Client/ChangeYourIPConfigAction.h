#pragma once

#include <Core/System/Sp.h>
#include <Discovery/Client/ClientAction.h>
#include <Discovery/Protocol/NICConfig.h>

namespace Zelkor::Discovery::Client
{
/// The task to configure adapters anew.
class ChangeYourIPConfigAction : public ClientAction
{
public:
    /// Shares the list.
    explicit ChangeYourIPConfigAction(const Tesmo::Sp<NICList>& configs)
        : ClientAction(ClientActionType::ChangeYourIPConfig),
          NICConfigs(configs)
    {
    }

    Tesmo::Sp<NICList> NICConfigs;
};
} // namespace Zelkor::Discovery::Client
