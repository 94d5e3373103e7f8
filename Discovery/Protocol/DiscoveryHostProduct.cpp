#include "DiscoveryHostProduct.h"

namespace Zelkor::Discovery
{
using Serialization::Json::JSONObject, Serialization::Json::JSONStringer;
using Tesmo::System::String;

namespace
{
const String typeKey = "ProductType";
const String serialNumberKey = "ProductSerialNumber";
const String versionKey = "ProductVersion";
const String nameKey = "ProductName";
} // namespace

DiscoveryHostProduct::DiscoveryHostProduct(const String& productType, const String& productSerialNumber,
                                           const String& productVersion, const String& productName)
    : ProductType(productType),
      ProductSerialNumber(productSerialNumber),
      ProductVersion(productVersion),
      ProductName(productName)
{
}

JSONStringer& DiscoveryHostProduct::WriteJSON(JSONStringer& stringer) const
{
    stringer.BeginObject();
    stringer.Key(typeKey).Value(ProductType);
    stringer.Key(serialNumberKey).Value(ProductSerialNumber);
    stringer.Key(versionKey).Value(ProductVersion);
    stringer.Key(nameKey).Value(ProductName);
    return stringer.EndObject();
}

void DiscoveryHostProduct::ReadJSON(const String& text)
{
    ReadObject(JSONObject(text));
}

void DiscoveryHostProduct::ReadObject(const JSONObject& object)
{
    ProductType = object.GetString(typeKey);
    ProductSerialNumber = object.GetString(serialNumberKey);
    ProductVersion = object.GetString(versionKey);
    ProductName = object.GetString(nameKey);
}
} // namespace Zelkor::Discovery
