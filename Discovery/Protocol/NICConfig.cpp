#include "NICConfig.h"

namespace Zelkor::Discovery
{
using Serialization::Json::JSONObject, Serialization::Json::JSONStringer;
using Tesmo::System::String;
using Address = Tesmo::System::Net::IPAddress;

namespace
{
const String friendlyNameKey = "FriendlyName";
const String macAddressKey = "MACAddress";
const String ipAddressKey = "IPAddress";
const String subNetMaskKey = "SubNetMask";
const String defaultGatewayKey = "DefaultGateway";
const String mtuKey = "MTU";
const String unknownMTU = "Unknown";
} // namespace

NICConfig::NICConfig(const String& friendlyName, const Discovery::MACAddress& macAddress, const Address& ipAddress,
                     const Address& subNetMask, const String& mtu)
    : FriendlyName(friendlyName),
      MACAddress(macAddress),
      IPAddress(ipAddress),
      SubNetMask(subNetMask),
      MTU(mtu)
{
}

NICConfig::NICConfig(const String& friendlyName, const Discovery::MACAddress& macAddress, const Address& ipAddress,
                     const Address& subNetMask, const Address& defaultGateway, const String& mtu)
    : FriendlyName(friendlyName),
      MACAddress(macAddress),
      IPAddress(ipAddress),
      SubNetMask(subNetMask),
      DefaultGateway(defaultGateway),
      HasDefaultGateway(true),
      MTU(mtu)
{
}

JSONStringer& NICConfig::WriteJSON(JSONStringer& stringer) const
{
    stringer.BeginObject();
    stringer.Key(friendlyNameKey).Value(FriendlyName);
    stringer.Key(macAddressKey).Value(MACAddress.ToString());
    stringer.Key(ipAddressKey).Value(IPAddress.ToString());
    stringer.Key(subNetMaskKey).Value(SubNetMask.ToString());
    stringer.Key(defaultGatewayKey).Value(HasDefaultGateway ? DefaultGateway.ToString() : String());
    stringer.Key(mtuKey).Value(MTU);
    return stringer.EndObject();
}

void NICConfig::ReadJSON(const String& text)
{
    ReadObject(JSONObject(text));
}

void NICConfig::ReadObject(const JSONObject& object)
{
    FriendlyName = object.GetString(friendlyNameKey);
    MACAddress = Discovery::MACAddress(object.GetString(macAddressKey));
    IPAddress = Address::Parse(object.GetString(ipAddressKey));
    SubNetMask = Address::Parse(object.GetString(subNetMaskKey));
    const String gateway = object.GetString(defaultGatewayKey);
    HasDefaultGateway = !gateway.IsEmpty();
    DefaultGateway = HasDefaultGateway ? Address::Parse(gateway) : Address::Any;
    MTU = object.OptString(mtuKey, unknownMTU);
}

bool NICConfig::operator==(const NICConfig& other) const
{
    return IPAddress == other.IPAddress && SubNetMask == other.SubNetMask && DefaultGateway == other.DefaultGateway &&
           MACAddress == other.MACAddress && FriendlyName == other.FriendlyName &&
           HasDefaultGateway == other.HasDefaultGateway && MTU == other.MTU;
}
} // namespace Zelkor::Discovery
