#pragma once

#include <Discovery/Client/IDiscoveryClientDataGateway.h>
#include <Discovery/Log/DiscoveryChannel.h>

namespace Zelkor::Discovery::Client
{
/// The gateway of both platforms: composes the host's snapshot from the raw layer in Platform, reading anew each time.
/// A class that derives from it can replace any single source of the snapshot.
class DiscoveryClientDataGatewayW32 : public IDiscoveryClientDataGateway
{
public:
    /// Works out the folder and the file that products share with this client. Where the host names no program
    /// folder, both are relative to the current directory.
    DiscoveryClientDataGatewayW32();
    /// Ends the watch over the host's addresses, of which there is one in the process. Not while a wait is under way.
    ~DiscoveryClientDataGatewayW32() override;
    DiscoveryClientDataGatewayW32(const DiscoveryClientDataGatewayW32&) = delete;
    DiscoveryClientDataGatewayW32& operator=(const DiscoveryClientDataGatewayW32&) = delete;

    /// Adapters whose hardware address hasn't 6 bytes are logged and left out.
    /// @throws Exception  "W32Gateway::GetAdaptersInfos failed !"
    Tesmo::Sp<Tesmo::System::Collections::Generic::List<MACAddress>> GetMACAddress() override;
    /// An adapter without an address has 0.0.0.0 as address and mask. The MTU is never measured.
    /// @throws Exception  "W32Gateway::GetAdaptersInfos failed !"
    Tesmo::Sp<Tesmo::System::Collections::Generic::List<Tesmo::Sp<NICConfig>>> GetNICConfigs() override;
    /// Loads, asks and unloads every plug-in anew; a failure is logged and leaves out the product, or all of them.
    /// @throws std::exception  what a plug-in throws against its contract
    Tesmo::Sp<Tesmo::System::Collections::Generic::List<Tesmo::Sp<DiscoveryHostProduct>>> GetProducts() override;
    /// Reads the file anew. None where there is no such file; a failure is logged and gives none, too.
    Tesmo::Sp<FileTransferInfos> GetFileTransferInfos() override;
    /// @throws Exception  "W32Gateway::GetHostName failed !"
    Tesmo::System::String GetHostName() override;
    Tesmo::System::String GetDeviceType() override;
    Tesmo::System::String GetDeviceFamily() override;
    Tesmo::System::String GetSerialNumber() override;
    DiscoveryHost GetHost() override;

    /// Hands a copy of config to the list overload.
    void ChangeIPConfig(const NICConfig& config) override;
    /// Renames the host and has it restarted in 30 seconds; the present name, in the same case, does nothing. Blocks for
    /// 60 s at most on Linux. A name stays changed when the restart is refused.
    /// @throws Exception  "W32Gateway::SetHostName failed ! Args : " and the name
    void ChangeHostName(const Tesmo::System::String& newName) override;
    bool IsHostNameReadOnly() override;
    bool RebootRequiredForIPConfigChange() override;
    bool RebootRequiredForHostNameChange() override;
    /// Applies each configuration to the adapter of this host with its hardware address, unless the adapter has that
    /// configuration already. Of several adapters with that address the one with the configuration's name is meant, else
    /// each that isn't stacked on another of them (VLANs have the address of the adapter below). An adapter without gateway, and an MTU other than the host's, always count as different.
    /// Blocks for 25 s an adapter at most on Linux. There is no way back: what was applied before a failure stays.
    /// @throws Exception  "W32Gateway::SetIPAddresses failed ! Args : " and the first adapter that refused, with the
    ///                    wanted values; "W32Gateway::GetAdaptersInfos failed !"
    void ChangeIPConfig(Tesmo::Sp<Tesmo::System::Collections::Generic::List<Tesmo::Sp<NICConfig>>> configs) override;

    bool RunIPChangeWatcher() override;
    int CancelWaitForIPChange() override;

    /// Full path of the folder with the products' plug-ins.
    const Tesmo::System::String& ProductIDsFolder() const;
    /// Full path of the JSON file with the file-transfer infos.
    const Tesmo::System::String& FileTransferInfosFile() const;

private:
    Tesmo::System::String productIDsFolder;
    Tesmo::System::String fileTransferInfosFile;
    DiscoveryChannel channel;
};
} // namespace Zelkor::Discovery::Client
