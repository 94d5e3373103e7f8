#pragma once

#include <Core/System/String.h>
#include <Serialization.Json/JSONObject.h>
#include <Serialization.Json/JSONStringer.h>

namespace Zelkor::Discovery
{
/// One product that is installed on a host. A plain value.
class DiscoveryHostProduct
{
public:
    DiscoveryHostProduct() = default;
    /// All four are told as they stand; none is interpreted.
    DiscoveryHostProduct(const Tesmo::System::String& productType, const Tesmo::System::String& productSerialNumber,
                         const Tesmo::System::String& productVersion, const Tesmo::System::String& productName);
    DiscoveryHostProduct(const DiscoveryHostProduct&) = default;
    DiscoveryHostProduct& operator=(const DiscoveryHostProduct&) = default;
    virtual ~DiscoveryHostProduct() = default;

    /// Writes the record as an object.
    virtual Serialization::Json::JSONStringer& WriteJSON(Serialization::Json::JSONStringer& stringer) const;

    /// Reads the record from the text of an object, or from the object. What was read before a failure stays.
    /// @throws FormatException    the text is no object
    /// @throws ArgumentException  a key is missing or no string
    void ReadJSON(const Tesmo::System::String& text);
    void ReadObject(const Serialization::Json::JSONObject& object);

    bool operator==(const DiscoveryHostProduct& other) const = default;

    Tesmo::System::String ProductType;
    Tesmo::System::String ProductSerialNumber;
    Tesmo::System::String ProductVersion;
    Tesmo::System::String ProductName;
};
} // namespace Zelkor::Discovery
