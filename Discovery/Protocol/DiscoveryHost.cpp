#include "DiscoveryHost.h"

#include <Core/System/Checks.h>
#include <Core/System/Exception.h>
#include <Discovery/Log/DiscoveryChannel.h>
#include <Serialization.Json/JSONArray.h>

#include <algorithm>

namespace Zelkor::Discovery
{
using Serialization::Json::JSONArray, Serialization::Json::JSONObject, Serialization::Json::JSONStringer;
using Tesmo::null, Tesmo::Sp, Tesmo::System::Exception, Tesmo::System::NotNull, Tesmo::System::String,
    Tesmo::System::Collections::Generic::List;

namespace
{
const String hostNameKey = "HostName";
const String isHostNameReadOnlyKey = "IsHostNameReadOnly";
const String rebootForIPConfigKey = "RebootRequiredForIPConfigChange";
const String rebootForHostNameKey = "RebootRequiredForHostNameChange";
const String deviceTypeKey = "DeviceType";
const String deviceFamilyKey = "DeviceFamily";
const String serialNumberKey = "SerialNumber";
const String nicsKey = "NICs";
const String productsKey = "Products";
const String fileTransferInfosKey = "FileTransferInfos";
const String channelName = "DiscoveryMessage";

template <class Record>
Sp<List<Sp<Record>>> DeepCopy(const List<Sp<Record>>& records)
{
    Sp<List<Sp<Record>>> copies(new List<Sp<Record>>(records.Count()));
    for (const Sp<Record>& record : records)
    {
        copies->Add(Sp<Record>(new Record(*record)));
    }
    return copies;
}

/// A host without a record equals one with no infos.
bool AreEqual(const Sp<FileTransferInfos>& left, const Sp<FileTransferInfos>& right)
{
    const FileTransferInfos none;
    return (left == null ? none : *left) == (right == null ? none : *right);
}

Sp<FileTransferInfos> DeepCopy(const Sp<FileTransferInfos>& infos)
{
    return infos == null ? infos : Sp<FileTransferInfos>(new FileTransferInfos(*infos));
}

template <class Record>
bool AreEqual(const List<Sp<Record>>& left, const List<Sp<Record>>& right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](const Sp<Record>& a, const Sp<Record>& b) { return *a == *b; });
}

template <class Record>
void WriteList(JSONStringer& stringer, const String& key, const List<Sp<Record>>& records)
{
    stringer.Key(key).BeginArray();
    for (const Sp<Record>& record : records)
    {
        record->WriteJSON(stringer);
    }
    stringer.EndArray();
}

template <class Record>
void ReadList(const JSONObject& object, const String& key, List<Sp<Record>>& records)
{
    const JSONArray elements = object.ViewArray(key);
    const int count = elements.GetLength();
    records.Clear();
    for (int i = 0; i < count; ++i)
    {
        const Sp<Record> record(new Record());
        record->ReadObject(elements.ViewObject(i));
        records.Add(record);
    }
}

void WriteInfos(JSONStringer& stringer, const Sp<FileTransferInfos>& infos)
{
    if (infos == null || infos->Infos->Count() == 0)
    {
        return;
    }
    stringer.Key(fileTransferInfosKey).BeginObject();
    try
    {
        infos->WriteJSON(stringer);
    }
    catch (const Exception& failure) // an empty key: the host is announced with the pairs before it (decision 113)
    {
        DiscoveryChannel(channelName)
            .Critical("Exception caught during JSON FileTransfer infos parsing -> ignoring.", failure);
    }
    stringer.EndObject();
}

/// @returns false where the infos are missing or can't be read
bool TryReadInfos(const JSONObject& object, FileTransferInfos& infos)
{
    try
    {
        if (!object.IsObject(fileTransferInfosKey))
        {
            return false;
        }
        infos.ReadObject(object.ViewObject(fileTransferInfosKey));
        return true;
    }
    catch (const Exception&)
    {
        return false;
    }
}
} // namespace

DiscoveryHost::DiscoveryHost()
    : NICs(new NICList()),
      Products(new ProductList()),
      FileTransferInfos(new Discovery::FileTransferInfos())
{
}

DiscoveryHost::DiscoveryHost(const String& hostName, bool isHostNameReadOnly, bool rebootRequiredForIPConfigChange,
                             bool rebootRequiredForHostNameChange, const String& deviceType, const String& deviceFamily,
                             const String& serialNumber)
    : HostName(hostName),
      IsHostNameReadOnly(isHostNameReadOnly),
      RebootRequiredForIPConfigChange(rebootRequiredForIPConfigChange),
      RebootRequiredForHostNameChange(rebootRequiredForHostNameChange),
      DeviceType(deviceType),
      DeviceFamily(deviceFamily),
      SerialNumber(serialNumber),
      NICs(new NICList()),
      Products(new ProductList()),
      FileTransferInfos(new Discovery::FileTransferInfos())
{
}

DiscoveryHost::DiscoveryHost(const DiscoveryHost& other)
    : HostName(NotNull(other).HostName),
      IsHostNameReadOnly(other.IsHostNameReadOnly),
      RebootRequiredForIPConfigChange(other.RebootRequiredForIPConfigChange),
      RebootRequiredForHostNameChange(other.RebootRequiredForHostNameChange),
      DeviceType(other.DeviceType),
      DeviceFamily(other.DeviceFamily),
      SerialNumber(other.SerialNumber),
      NICs(DeepCopy(*other.NICs)),
      Products(DeepCopy(*other.Products)),
      FileTransferInfos(DeepCopy(other.FileTransferInfos))
{
}

DiscoveryHost& DiscoveryHost::operator=(const DiscoveryHost& other)
{
    const Sp<NICList> nics = DeepCopy(*NotNull(other).NICs);
    const Sp<ProductList> products = DeepCopy(*other.Products);
    const Sp<Discovery::FileTransferInfos> infos = DeepCopy(other.FileTransferInfos);
    HostName = other.HostName;
    IsHostNameReadOnly = other.IsHostNameReadOnly;
    RebootRequiredForIPConfigChange = other.RebootRequiredForIPConfigChange;
    RebootRequiredForHostNameChange = other.RebootRequiredForHostNameChange;
    DeviceType = other.DeviceType;
    DeviceFamily = other.DeviceFamily;
    SerialNumber = other.SerialNumber;
    NICs = nics;
    Products = products;
    FileTransferInfos = infos;
    return *this;
}

Sp<DiscoveryHost> DiscoveryHost::Clone() const
{
    return Sp<DiscoveryHost>(new DiscoveryHost(*this));
}

JSONStringer& DiscoveryHost::WriteJSON(JSONStringer& stringer) const
{
    stringer.BeginObject();
    stringer.Key(hostNameKey).Value(HostName);
    stringer.Key(isHostNameReadOnlyKey).Value(IsHostNameReadOnly);
    stringer.Key(rebootForIPConfigKey).Value(RebootRequiredForIPConfigChange);
    stringer.Key(rebootForHostNameKey).Value(RebootRequiredForHostNameChange);
    stringer.Key(deviceTypeKey).Value(DeviceType);
    stringer.Key(deviceFamilyKey).Value(DeviceFamily);
    stringer.Key(serialNumberKey).Value(SerialNumber);
    WriteList(stringer, nicsKey, *NICs);
    WriteList(stringer, productsKey, *Products);
    WriteInfos(stringer, FileTransferInfos);
    return stringer.EndObject();
}

void DiscoveryHost::ReadJSON(const String& text)
{
    ReadObject(JSONObject(text));
}

void DiscoveryHost::ReadObject(const JSONObject& object)
{
    HostName = object.GetString(hostNameKey);
    IsHostNameReadOnly = object.OptBoolean(isHostNameReadOnlyKey, true);
    RebootRequiredForIPConfigChange = object.OptBoolean(rebootForIPConfigKey);
    RebootRequiredForHostNameChange = object.OptBoolean(rebootForHostNameKey);
    DeviceType = object.GetString(deviceTypeKey);
    DeviceFamily = object.OptString(deviceFamilyKey);
    SerialNumber = object.OptString(serialNumberKey);
    ReadList(object, nicsKey, *NICs);
    ReadList(object, productsKey, *Products);
    if (FileTransferInfos == null)
    {
        FileTransferInfos.Reset(new Discovery::FileTransferInfos());
    }
    if (!TryReadInfos(object, *FileTransferInfos))
    {
        DiscoveryChannel(channelName).Standard("No FileTransfer infos or failed to parse JSON data");
    }
}

void DiscoveryHost::AddNIC(const Sp<NICConfig>& nic)
{
    NICs->Add(nic);
}

void DiscoveryHost::AddProduct(const Sp<DiscoveryHostProduct>& product)
{
    Products->Add(product);
}

bool DiscoveryHost::operator==(const DiscoveryHost& other) const
{
    return HostName == other.HostName && IsHostNameReadOnly == other.IsHostNameReadOnly &&
           RebootRequiredForIPConfigChange == other.RebootRequiredForIPConfigChange && DeviceType == other.DeviceType &&
           DeviceFamily == other.DeviceFamily && SerialNumber == other.SerialNumber && AreEqual(*NICs, *other.NICs) &&
           AreEqual(*Products, *other.Products) && AreEqual(FileTransferInfos, other.FileTransferInfos);
}
} // namespace Zelkor::Discovery
