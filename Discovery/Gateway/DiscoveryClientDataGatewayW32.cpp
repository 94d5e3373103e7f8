#include "DiscoveryClientDataGatewayW32.h"

#include <Core/LogStream/LogStreamLevel.h>
#include <Core/System/Array.h>
#include <Core/System/Byte.h>
#include <Core/System/Exception.h>
#include <Core/System/IO/Path.h>
#include <Core/System/Net/IPAddress.h>
#include <Core/System/NotSupportedException.h>
#include <Discovery/Gateway/Platform/Adapters.h>
#include <Discovery/Gateway/Platform/AddressChange.h>
#include <Discovery/Gateway/Platform/DeviceType.h>
#include <Discovery/Gateway/Platform/HostName.h>
#include <Discovery/Gateway/Platform/IdentityNumber.h>
#include <Discovery/Gateway/Platform/ProgramRoot.h>
#include <Discovery/Protocol/DiscoveryLogger.h>

#include <algorithm>
#include <functional>
#include <string>

namespace Zelkor::Discovery::Client
{
using Tesmo::Sp;
using Tesmo::System::Array;
using Tesmo::System::Byte;
using Tesmo::System::Exception;
using Tesmo::System::NotSupportedException;
using Tesmo::System::String;
using Tesmo::System::Collections::Generic::List;
using Tesmo::System::IO::Path;
using Tesmo::System::LogStreams::LogStreamChannel;
using Tesmo::System::LogStreams::LogStreamLevel;
using Tesmo::System::Net::IPAddress;

namespace
{
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

/// Hands over the adapters in the host's order; one that fails is logged and left out.
void ForEachAdapter(const LogStreamChannel& channel, const AdapterVisitor& visit)
{
    std::vector<Platform::Adapter> adapters;
    if (Platform::ReadAdapters(adapters) != 0)
    {
        throw Exception("W32Gateway::GetAdaptersInfos failed !", ThrowSite);
    }
    for (const Platform::Adapter& adapter : adapters)
    {
        try
        {
            visit(adapter, MakeMACAddress(adapter));
        }
        catch (const Exception&)
        {
            const std::string message = "Unexpected MAC Address length for " + adapter.friendlyName + ": " +
                                        std::to_string(adapter.macLength) + " -> NIC ignored";
            DiscoveryLogger::Instance().Write(channel, String(message), LogStreamLevel::Critical);
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
    return Sp<List<Sp<DiscoveryHostProduct>>>(new List<Sp<DiscoveryHostProduct>>());
}

Sp<FileTransferInfos> DiscoveryClientDataGatewayW32::GetFileTransferInfos()
{
    return Sp<FileTransferInfos>(new FileTransferInfos());
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

void DiscoveryClientDataGatewayW32::ChangeHostName(const String&)
{
    throw NotSupportedException(ThrowSite);
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

void DiscoveryClientDataGatewayW32::ChangeIPConfig(Sp<List<Sp<NICConfig>>>)
{
    throw NotSupportedException(ThrowSite);
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
