#include "DiscoveryClientDataGatewayW32.h"

#include <Core/System/Array.h>
#include <Core/System/Byte.h>
#include <Core/System/Exception.h>
#include <Core/System/IO/File.h>
#include <Core/System/IO/FileInfo.h>
#include <Core/System/IO/IOException.h>
#include <Core/System/IO/Path.h>
#include <Core/System/IO/StreamReader.h>
#include <Core/System/Net/IPAddress.h>
#include <Discovery/Gateway/AdapterStack.h>
#include <Discovery/Gateway/DiscoveryProductPluginsController.h>
#include <Discovery/Gateway/Platform/AdapterSettings.h>
#include <Discovery/Gateway/Platform/Adapters.h>
#include <Discovery/Gateway/Platform/AddressChange.h>
#include <Discovery/Gateway/Platform/DeviceType.h>
#include <Discovery/Gateway/Platform/HostName.h>
#include <Discovery/Gateway/Platform/IdentityNumber.h>
#include <Discovery/Gateway/Platform/ProgramRoot.h>
#include <Discovery/Gateway/Platform/Reboot.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

namespace Zelkor::Discovery::Client
{
using Tesmo::Sp, Tesmo::System::Array, Tesmo::System::Byte, Tesmo::System::Exception, Tesmo::System::String,
    Tesmo::System::Collections::Generic::List, Tesmo::System::IO::File, Tesmo::System::IO::FileAttributes,
    Tesmo::System::IO::FileInfo, Tesmo::System::IO::IOException, Tesmo::System::IO::Path,
    Tesmo::System::IO::StreamReader, Tesmo::System::Net::IPAddress;

namespace
{
// decision 141
constexpr std::int64_t LongestInfos = 65507; // bytes of a file: what UDP over IPv4 carries at most (RFC 768, RFC 791)
constexpr int RebootDelay = 30;              // seconds: the time that users have to save their work

using AdapterVisitor = std::function<void(const Platform::Adapter&, const MACAddress&)>;

/// @throws ArgumentException  the address hasn't 6 bytes
MACAddress MakeMACAddress(const Platform::Adapter& adapter)
{
    Array<Byte> bytes(static_cast<int>(adapter.macLength));
    for (int i = 0; i < std::min(bytes.Length(), Platform::AdapterAddressSize); ++i)
    {
        bytes[i] = adapter.macBytes[i];
    }
    return MACAddress(bytes);
}

std::vector<Platform::Adapter> ReadAdapters()
{
    std::vector<Platform::Adapter> adapters;
    if (Platform::ReadAdapters(adapters) != 0)
    {
        throw Exception("W32Gateway::GetAdaptersInfos failed !", ThrowSite);
    }
    return adapters;
}

/// Visits the adapters in the host's order; one whose hardware address hasn't 6 bytes is logged and left out.
void ForEachAdapter(const DiscoveryChannel& channel, const AdapterVisitor& visit)
{
    for (const Platform::Adapter& adapter : ReadAdapters())
    {
        try
        {
            visit(adapter, MakeMACAddress(adapter));
        }
        catch (const Exception&)
        {
            const std::string message = "Unexpected MAC Address length for " + adapter.friendlyName + ": " +
                                        std::to_string(adapter.macLength) + " -> NIC ignored";
            channel.Critical(String(message));
        }
    }
}

IPAddress ParseOrAny(const char* text)
{
    IPAddress address;
    return IPAddress::TryParse(text, address) ? address : IPAddress::Any;
}

Sp<NICConfig> MakeNICConfig(const Platform::Adapter& adapter, const MACAddress& macAddress)
{
    Sp<NICConfig> config(new NICConfig());
    config->FriendlyName = String(adapter.friendlyName);
    config->MACAddress = macAddress;
    config->IPAddress = ParseOrAny(adapter.ipAddressText);
    config->SubNetMask = ParseOrAny(adapter.ipMaskText);
    config->HasDefaultGateway = IPAddress::TryParse(adapter.gatewayText, config->DefaultGateway);
    config->MTU = "Unknown";
    return config;
}

/// What a request asks of an adapter of this host, under the adapter's own name.
Sp<NICConfig> MakeWorkItem(const NICConfig& request, const NICConfig& adapter)
{
    return Sp<NICConfig>(new NICConfig(adapter.FriendlyName, request.MACAddress, request.IPAddress, request.SubNetMask,
                                       request.DefaultGateway, request.MTU));
}

/// Keeps the adapter with the requested name, else each that isn't stacked on another of them (decision 135).
void KeepRequested(std::vector<Sp<NICConfig>>& adapters, const String& requestedName)
{
    const auto isOther = [&](const Sp<NICConfig>& adapter) { return adapter->FriendlyName != requestedName; };
    if (!std::all_of(adapters.begin(), adapters.end(), isOther))
    {
        std::erase_if(adapters, isOther);
        return;
    }
    const AdapterStack stack(ReadAdapters());
    std::erase_if(adapters,
                  [&, all = adapters](const Sp<NICConfig>& upper)
                  {
                      return std::any_of(all.begin(), all.end(),
                                         [&](const Sp<NICConfig>& lower)
                                         { return stack.IsAbove(upper->FriendlyName, lower->FriendlyName); });
                  });
}

/// The adapters of this host that a request asks to change.
std::vector<Sp<NICConfig>> FindAdapters(const NICConfig& request, const List<Sp<NICConfig>>& adapters)
{
    std::vector<Sp<NICConfig>> found;
    std::copy_if(adapters.begin(), adapters.end(), std::back_inserter(found),
                 [&](const Sp<NICConfig>& adapter) { return adapter->MACAddress == request.MACAddress; });
    if (found.size() > 1)
    {
        KeepRequested(found, request.FriendlyName);
    }
    return found;
}

/// One item for each request and each adapter that it asks to change, unless the adapter is so already.
Sp<List<Sp<NICConfig>>> MakeWorkItems(const List<Sp<NICConfig>>& requests, const List<Sp<NICConfig>>& adapters)
{
    Sp<List<Sp<NICConfig>>> items(new List<Sp<NICConfig>>());
    for (const Sp<NICConfig>& request : requests)
    {
        for (const Sp<NICConfig>& adapter : FindAdapters(*request, adapters))
        {
            const Sp<NICConfig> item = MakeWorkItem(*request, *adapter);
            if (*item != *adapter)
            {
                items->Add(item);
            }
        }
    }
    return items;
}

/// "address/mask/gateway"
String AddressTexts(const NICConfig& config)
{
    return config.IPAddress.ToString() + "/" + config.SubNetMask.ToString() + "/" + config.DefaultGateway.ToString();
}

/// @throws Exception  the host refused
void Apply(const DiscoveryChannel& channel, const NICConfig& item)
{
    channel.Standard("Updating IP config of " + item.FriendlyName + " (" + item.MACAddress.ToString() +
                     "). New IP config : " + AddressTexts(item));
    const Platform::AdapterSettings settings = {
        item.FriendlyName.Utf8(), item.IPAddress.ToString().Utf8(), item.SubNetMask.ToString().Utf8(),
        item.HasDefaultGateway ? item.DefaultGateway.ToString().Utf8() : std::string()};
    const Platform::SettingsOutcome outcome = Platform::ChangeAdapterSettings(settings);
    if (!outcome.remark.empty())
    {
        channel.Critical("IP config of " + item.FriendlyName + " : " + String(outcome.remark));
    }
    if (outcome.isUnseen)
    {
        Platform::NoteAddressChange(); // who asked for the change waits for a signature
    }
    if (outcome.error != 0)
    {
        throw Exception("W32Gateway::SetIPAddresses failed ! Args : " + item.FriendlyName + "/" + AddressTexts(item),
                        ThrowSite);
    }
}

String ReadInfosText(const String& path)
{
    if (FileInfo(path).Attributes().Has(FileAttributes::Device))
    {
        throw IOException("The file is a pipe or a device, which may have no end.", ThrowSite);
    }
    StreamReader reader(path);
    if (reader.BaseStream()->Length() > LongestInfos)
    {
        throw IOException("The file is longer than a datagram.", ThrowSite);
    }
    return reader.ReadToEnd();
}
} // namespace

DiscoveryClientDataGatewayW32::DiscoveryClientDataGatewayW32() : channel("ClientDataGateway")
{
    String folder(Platform::ProgramRoot());
    for (const char* const name : {"Zelkor", "Common", "Discovery"})
    {
        folder = Path::Combine(folder, name);
    }
    productIDsFolder = Path::Combine(folder, "ProductIDs");
    fileTransferInfosFile = Path::Combine(folder, "FileTransferInfos.json");
}

DiscoveryClientDataGatewayW32::~DiscoveryClientDataGatewayW32()
{
    Platform::EndAddressChangeWatch();
}

Sp<List<MACAddress>> DiscoveryClientDataGatewayW32::GetMACAddress()
{
    Sp<List<MACAddress>> addresses(new List<MACAddress>());
    ForEachAdapter(channel, [&](const Platform::Adapter&, const MACAddress& address) { addresses->Add(address); });
    return addresses;
}

Sp<List<Sp<NICConfig>>> DiscoveryClientDataGatewayW32::GetNICConfigs()
{
    Sp<List<Sp<NICConfig>>> configs(new List<Sp<NICConfig>>());
    ForEachAdapter(channel, [&](const Platform::Adapter& adapter, const MACAddress& address)
                   { configs->Add(MakeNICConfig(adapter, address)); });
    return configs;
}

Sp<List<Sp<DiscoveryHostProduct>>> DiscoveryClientDataGatewayW32::GetProducts()
{
    try
    {
        return DiscoveryProductPluginsController(productIDsFolder).GetProducts();
    }
    catch (const Exception& failure)
    {
        channel.Critical("Aborting GetProducts : exception caught in GetProducts !", failure);
        return Sp<List<Sp<DiscoveryHostProduct>>>(new List<Sp<DiscoveryHostProduct>>());
    }
}

Sp<FileTransferInfos> DiscoveryClientDataGatewayW32::GetFileTransferInfos()
{
    try
    {
        Sp<FileTransferInfos> infos(new FileTransferInfos());
        if (File::Exists(fileTransferInfosFile))
        {
            infos->ReadJSON(ReadInfosText(fileTransferInfosFile));
        }
        return infos;
    }
    catch (const Exception& failure)
    {
        channel.Critical("Aborting GetFileTransferInfos : exception caught in GetFTPInfos !", failure);
        return Sp<FileTransferInfos>(new FileTransferInfos());
    }
}

String DiscoveryClientDataGatewayW32::GetHostName()
{
    char name[Platform::HostNameSize];
    if (Platform::ReadHostName(name) != 0)
    {
        throw Exception("W32Gateway::GetHostName failed !", ThrowSite);
    }
    return String(name);
}

String DiscoveryClientDataGatewayW32::GetDeviceType()
{
    return Platform::DeviceType();
}

String DiscoveryClientDataGatewayW32::GetDeviceFamily()
{
    return "Computer";
}

String DiscoveryClientDataGatewayW32::GetSerialNumber()
{
    const auto number = Platform::ReadIdentityNumber();
    return number ? String(std::to_string(*number)) : String();
}

DiscoveryHost DiscoveryClientDataGatewayW32::GetHost()
{
    const String hostName = GetHostName();
    const String deviceType = GetDeviceType();
    const String deviceFamily = GetDeviceFamily();
    const bool isHostNameReadOnly = IsHostNameReadOnly();
    const String serialNumber = GetSerialNumber();
    const bool rebootForIPConfig = RebootRequiredForIPConfigChange();
    const bool rebootForHostName = RebootRequiredForHostNameChange();
    DiscoveryHost host(hostName, isHostNameReadOnly, rebootForIPConfig, rebootForHostName, deviceType, deviceFamily,
                       serialNumber);
    host.NICs = GetNICConfigs();
    host.Products = GetProducts();
    host.FileTransferInfos = GetFileTransferInfos();
    return host;
}

void DiscoveryClientDataGatewayW32::ChangeIPConfig(const NICConfig& config)
{
    Sp<List<Sp<NICConfig>>> configs(new List<Sp<NICConfig>>());
    configs->Add(Sp<NICConfig>(new NICConfig(config)));
    ChangeIPConfig(configs);
}

void DiscoveryClientDataGatewayW32::ChangeHostName(const String& newName)
{
    if (GetHostName() == newName)
    {
        return;
    }
    if (Platform::WriteHostName(newName.Utf8()) != 0 || Platform::RequestReboot(RebootDelay) != 0)
    {
        throw Exception("W32Gateway::SetHostName failed ! Args : " + newName, ThrowSite);
    }
}

bool DiscoveryClientDataGatewayW32::IsHostNameReadOnly()
{
    return false;
}

bool DiscoveryClientDataGatewayW32::RebootRequiredForIPConfigChange()
{
    return false;
}

bool DiscoveryClientDataGatewayW32::RebootRequiredForHostNameChange()
{
    return true;
}

void DiscoveryClientDataGatewayW32::ChangeIPConfig(Sp<List<Sp<NICConfig>>> configs)
{
    const Sp<List<Sp<NICConfig>>> items = MakeWorkItems(*configs, *GetNICConfigs());
    if (items->Count() == 0)
    {
        channel.Standard("No IP configuration to update on this Client.");
        return;
    }
    for (const Sp<NICConfig>& item : *items)
    {
        Apply(channel, *item);
    }
}

bool DiscoveryClientDataGatewayW32::RunIPChangeWatcher()
{
    return Platform::WaitForAddressChange();
}

int DiscoveryClientDataGatewayW32::CancelWaitForIPChange()
{
    return Platform::CancelAddressChangeWait();
}

const String& DiscoveryClientDataGatewayW32::ProductIDsFolder() const
{
    return productIDsFolder;
}

const String& DiscoveryClientDataGatewayW32::FileTransferInfosFile() const
{
    return fileTransferInfosFile;
}
} // namespace Zelkor::Discovery::Client
