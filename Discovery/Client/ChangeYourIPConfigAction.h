#pragma once

#include <Core/System/Collections/Generic/List.h>
#include <Core/System/Sp.h>
#include <Discovery/Client/ClientAction.h>
#include <Discovery/Protocol/NICConfig.h>

namespace Zelkor::Discovery::Client
{
/// Configure interfaces anew.
class ChangeYourIPConfigAction : public ClientAction
{
public:
    using NICList = Tesmo::System::Collections::Generic::List<Tesmo::Sp<NICConfig>>;

    /// Shares the list.
    explicit ChangeYourIPConfigAction(const Tesmo::Sp<NICList>& configs)
        : ClientAction(ClientActionType::ChangeYourIPConfig),
          NICConfigs(configs)
    {
    }

    Tesmo::Sp<NICList> NICConfigs;
};
} // namespace Zelkor::Discovery::Client
