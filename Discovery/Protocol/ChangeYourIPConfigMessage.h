#pragma once

#include <Core/System/Sp.h>
#include <Discovery/Protocol/DiscoveryMessage.h>
#include <Discovery/Protocol/NICConfig.h>

namespace Zelkor::Discovery
{
/// Asks the hosts that own the adapters to configure them anew.
class ChangeYourIPConfigMessage : public DiscoveryMessage
{
public:
    /// With a new empty list.
    ChangeYourIPConfigMessage();
    /// Shares the list.
    ChangeYourIPConfigMessage(const Tesmo::System::Version& version, const Tesmo::Sp<NICList>& newNICConfigs);

    DiscoveryMessageType GetMessageType() const override;
    void WriteJSON(Serialization::Json::JSONStringer& stringer) const override;
    /// Skips the elements that can't be read: the first 100 have a log row each, the others one with their number.
    void ReadObject(const Serialization::Json::JSONObject& object) override;

    Tesmo::Sp<NICList> NewNICConfigs;
};
} // namespace Zelkor::Discovery
