#pragma once

#include <Core/System/Collections/Generic/List.h>
#include <Core/System/Net/IPAddress.h>
#include <Core/System/Sp.h>
#include <Core/System/String.h>
#include <Discovery/Protocol/MACAddress.h>
#include <Serialization.Json/JSONObject.h>
#include <Serialization.Json/JSONStringer.h>

namespace Zelkor::Discovery
{
/// One adapter of a host, or the wanted state of one. A plain value; nothing but the forms of the addresses is checked.
class NICConfig
{
public:
    NICConfig() = default;
    /// An adapter without a gateway.
    NICConfig(const Tesmo::System::String& friendlyName, const Discovery::MACAddress& macAddress,
              const Tesmo::System::Net::IPAddress& ipAddress, const Tesmo::System::Net::IPAddress& subNetMask,
              const Tesmo::System::String& mtu);
    /// An adapter with a gateway.
    NICConfig(const Tesmo::System::String& friendlyName, const Discovery::MACAddress& macAddress,
              const Tesmo::System::Net::IPAddress& ipAddress, const Tesmo::System::Net::IPAddress& subNetMask,
              const Tesmo::System::Net::IPAddress& defaultGateway, const Tesmo::System::String& mtu);
    NICConfig(const NICConfig&) = default;
    NICConfig& operator=(const NICConfig&) = default;
    virtual ~NICConfig() = default;

    /// Writes the record as an object.
    virtual Serialization::Json::JSONStringer& WriteJSON(Serialization::Json::JSONStringer& stringer) const;

    /// Reads the record from the text of an object, or from the object. What was read before a failure stays.
    /// @throws FormatException    the text is no object
    /// @throws ArgumentException  a key other than "MTU" is missing or no string
    /// @throws Exception          an address can't be read: the failure of its own reading
    void ReadJSON(const Tesmo::System::String& text);
    void ReadObject(const Serialization::Json::JSONObject& object);

    /// All fields count, DefaultGateway even where it is without meaning.
    bool operator==(const NICConfig& other) const;

    Tesmo::System::String FriendlyName; ///< display name
    Discovery::MACAddress MACAddress;
    Tesmo::System::Net::IPAddress IPAddress;
    Tesmo::System::Net::IPAddress SubNetMask;
    Tesmo::System::Net::IPAddress DefaultGateway; ///< without meaning while HasDefaultGateway is false
    bool HasDefaultGateway = false;
    Tesmo::System::String MTU = "Unknown"; ///< free text
};

using NICList = Tesmo::System::Collections::Generic::List<Tesmo::Sp<NICConfig>>;
} // namespace Zelkor::Discovery
