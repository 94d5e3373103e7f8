#include "ChangeYourIPConfigMessage.h"

#include <Core/System/Exception.h>
#include <Discovery/Protocol/MessageKey.h>
#include <Serialization.Json/JSONArray.h>

namespace Zelkor::Discovery
{
using Serialization::Json::JSONArray, Serialization::Json::JSONObject, Serialization::Json::JSONStringer;
using Tesmo::Sp, Tesmo::System::Exception, Tesmo::System::String;

namespace
{
/// Bad elements of one message that have a log row each; a datagram can hold some 32,000 (decision 116).
constexpr int MostElementRows = 100;

/// @returns false where the element is no object or can't be read
bool TryReadElement(const JSONArray& elements, int index, NICConfig& config)
{
    try
    {
        if (!elements.IsObject(index))
        {
            return false;
        }
        config.ReadObject(elements.ViewObject(index));
        return true;
    }
    catch (const Exception&)
    {
        return false;
    }
}

/// @returns how many elements are bad
int ReadElements(const JSONArray& elements, NICList& configs)
{
    int bad = 0;
    const int count = elements.GetLength();
    for (int i = 0; i < count; ++i)
    {
        const Sp<NICConfig> config(new NICConfig());
        if (TryReadElement(elements, i, *config))
        {
            configs.Add(config);
        }
        else if (++bad <= MostElementRows)
        {
            DiscoveryChannel(NewNICConfigsKey.channel).Critical("Failed to parse NIC config !!! Ignoring this one...");
        }
    }
    return bad;
}
} // namespace

ChangeYourIPConfigMessage::ChangeYourIPConfigMessage() : NewNICConfigs(new NICList()) {}

ChangeYourIPConfigMessage::ChangeYourIPConfigMessage(const Tesmo::System::Version& version,
                                                     const Sp<NICList>& newNICConfigs)
    : DiscoveryMessage(version, true),
      NewNICConfigs(newNICConfigs)
{
}

DiscoveryMessageType ChangeYourIPConfigMessage::GetMessageType() const
{
    return DiscoveryMessageType::ChangeYourIPConfig;
}

void ChangeYourIPConfigMessage::WriteJSON(JSONStringer& stringer) const
{
    DiscoveryMessage::WriteJSON(stringer);
    stringer.Key(NewNICConfigsKey.name).BeginArray();
    for (const Sp<NICConfig>& config : *NewNICConfigs)
    {
        config->WriteJSON(stringer);
    }
    stringer.EndArray();
}

void ChangeYourIPConfigMessage::ReadObject(const JSONObject& object)
{
    DiscoveryMessage::ReadObject(object);
    NewNICConfigsKey.Check(object.IsArray(NewNICConfigsKey.name));
    NewNICConfigs->Clear();
    const int unlogged = ReadElements(object.ViewArray(NewNICConfigsKey.name), *NewNICConfigs) - MostElementRows;
    if (unlogged > 0)
    {
        DiscoveryChannel(NewNICConfigsKey.channel)
            .Critical(String::Format("Failed to parse NIC config !!! Ignoring {0} more...", unlogged));
    }
}
} // namespace Zelkor::Discovery
