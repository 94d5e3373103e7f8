#pragma once

#include <Core/System/Collections/Generic/List.h>
#include <Core/System/Sp.h>
#include <Core/System/String.h>
#include <Discovery/Protocol/DiscoveryHostProduct.h>
#include <Discovery/Protocol/FileTransferInfos.h>
#include <Discovery/Protocol/NICConfig.h>
#include <Serialization.Json/JSONObject.h>
#include <Serialization.Json/JSONStringer.h>

namespace Zelkor::Discovery
{
/// All that is told about a host. A plain value: copies share nothing.
class DiscoveryHost
{
public:
    using ProductList = Tesmo::System::Collections::Generic::List<Tesmo::Sp<DiscoveryHostProduct>>;

    /// Without adapters and products, and with empty file-transfer infos.
    DiscoveryHost();
    DiscoveryHost(const Tesmo::System::String& hostName, bool isHostNameReadOnly, bool rebootRequiredForIPConfigChange,
                  bool rebootRequiredForHostNameChange, const Tesmo::System::String& deviceType,
                  const Tesmo::System::String& deviceFamily, const Tesmo::System::String& serialNumber);
    /// @throws ArgumentNullException  other is null
    DiscoveryHost(const DiscoveryHost& other);
    DiscoveryHost& operator=(const DiscoveryHost& other);
    virtual ~DiscoveryHost() = default;

    /// A new host that equals this one and shares nothing with it.
    virtual Tesmo::Sp<DiscoveryHost> Clone() const;

    /// Writes the record as an object. "FileTransferInfos" is left out when it is empty and ends at a pair that can't
    /// be written, which is logged.
    virtual Serialization::Json::JSONStringer& WriteJSON(Serialization::Json::JSONStringer& stringer) const;

    /// Reads the record from the text of an object, or from the object. What was read before a failure stays. A missing
    /// or bad "FileTransferInfos" is logged and is no failure.
    /// @throws FormatException    the text is no object
    /// @throws ArgumentException  "HostName", "DeviceType", "NICs" or "Products" is missing or of another kind
    /// @throws Exception          an element of the lists can't be read: the failure of its own reading
    void ReadJSON(const Tesmo::System::String& text);
    void ReadObject(const Serialization::Json::JSONObject& object);

    /// Append the object itself, not a copy.
    void AddNIC(const Tesmo::Sp<NICConfig>& nic);
    void AddProduct(const Tesmo::Sp<DiscoveryHostProduct>& product);

    /// Hosts that differ only in RebootRequiredForHostNameChange are equal, and FileTransferInfos are compared one way only (see there).
    bool operator==(const DiscoveryHost& other) const;

    Tesmo::System::String HostName;
    bool IsHostNameReadOnly = true;
    bool RebootRequiredForIPConfigChange = false;
    bool RebootRequiredForHostNameChange = false;
    Tesmo::System::String DeviceType;
    Tesmo::System::String DeviceFamily;
    Tesmo::System::String SerialNumber; ///< shown to operators; nothing is decided on it
    Tesmo::Sp<NICList> NICs;
    Tesmo::Sp<ProductList> Products;
    Tesmo::Sp<Discovery::FileTransferInfos> FileTransferInfos; ///< may be empty: then there is nothing to tell
};
} // namespace Zelkor::Discovery
