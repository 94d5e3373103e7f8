#pragma once

#include <Core/System/Collections/Generic/List.h>
#include <Core/System/Sp.h>
#include <Discovery/Protocol/DiscoveryMessage.h>
#include <Discovery/Protocol/NICConfig.h>

namespace Zelkor::Discovery
{
/// Asks the hosts that own the interfaces to configure them anew.
class ChangeYourIPConfigMessage : public DiscoveryMessage
{
public:
    using NICList = Tesmo::System::Collections::Generic::List<Tesmo::Sp<NICConfig>>;

    /// With a new empty list.
    ChangeYourIPConfigMessage();
    /// Shares the list.
    ChangeYourIPConfigMessage(const Tesmo::System::Version& version, const Tesmo::Sp<NICList>& newNICConfigs);

    DiscoveryMessageType GetMessageType() const override;
    void WriteJSON(Serialization::Json::JSONStringer& stringer) const override;
    /// Skips the elements that can't be read: a log line for each of the first 100, one for the number of the others.
    void ReadJSON(const Tesmo::System::String& text) override;

    Tesmo::Sp<NICList> NewNICConfigs;
};
} // namespace Zelkor::Discovery
