#pragma once

#include <Discovery/Client/IDiscoveryClientDataGateway.h>
#include <Discovery/Log/DiscoveryChannel.h>

namespace Zelkor::Discovery::Client
{
/// The gateway of both platforms: reads and changes the host by the functions of Platform. It keeps nothing of the
/// host, each call reads anew. A class that derives from it can replace any single source of the snapshot.
class DiscoveryClientDataGatewayW32 : public IDiscoveryClientDataGateway
{
public:
    /// Works out the paths of what products share with this client; they are relative to the current directory if the
    /// host names no folder for programs.
    DiscoveryClientDataGatewayW32();
    /// Ends the process's one watch over the host's addresses. Not while RunIPChangeWatcher runs.
    ~DiscoveryClientDataGatewayW32() override;
    DiscoveryClientDataGatewayW32(const DiscoveryClientDataGatewayW32&) = delete;
    DiscoveryClientDataGatewayW32& operator=(const DiscoveryClientDataGatewayW32&) = delete;

    /// Adapters whose hardware address hasn't 6 bytes are logged and left out.
    /// @throws Exception  "W32Gateway::GetAdaptersInfos failed !"
    Tesmo::Sp<Tesmo::System::Collections::Generic::List<MACAddress>> GetMACAddress() override;
    /// An adapter without an address has 0.0.0.0 as address and mask. The MTU is never measured.
    /// @throws Exception  "W32Gateway::GetAdaptersInfos failed !"
    Tesmo::Sp<Tesmo::System::Collections::Generic::List<Tesmo::Sp<NICConfig>>> GetNICConfigs() override;
    /// Loads, asks and unloads every plug-in; a failure is logged and leaves out the product, or all of them.
    /// @throws std::exception  what a plug-in throws against its contract
    Tesmo::Sp<Tesmo::System::Collections::Generic::List<Tesmo::Sp<DiscoveryHostProduct>>> GetProducts() override;
    /// Empty if there is no such file; also after a failure, which is logged.
    Tesmo::Sp<FileTransferInfos> GetFileTransferInfos() override;
    /// @throws Exception  "W32Gateway::GetHostName failed !"
    Tesmo::System::String GetHostName() override;
    /// "Windows PC" or "Linux PC".
    Tesmo::System::String GetDeviceType() override;
    /// "Computer".
    Tesmo::System::String GetDeviceFamily() override;
    /// The host's identity number in decimal, empty if it has none.
    Tesmo::System::String GetSerialNumber() override;
    /// @throws Exception  "W32Gateway::GetHostName failed !", "W32Gateway::GetAdaptersInfos failed !"
    DiscoveryHost GetHost() override;

    /// Hands a copy of config to the list overload.
    void ChangeIPConfig(const NICConfig& config) override;
    /// Renames the host and has it restarted in 30 seconds; does nothing if that is its name already, in the same case.
    /// Blocks for 60 s at most on Linux. The new name stays even if the restart is refused.
    /// @throws Exception  "W32Gateway::GetHostName failed !"; "W32Gateway::SetHostName failed ! Args : " and the name
    void ChangeHostName(const Tesmo::System::String& newName) override;
    /// False.
    bool IsHostNameReadOnly() override;
    /// False.
    bool RebootRequiredForIPConfigChange() override;
    /// True.
    bool RebootRequiredForHostNameChange() override;
    /// Gives each configuration to the adapter of this host with its hardware address, unless the adapter has it
    /// already. If several adapters have that address, the one with the configuration's name gets it, else each that
    /// isn't stacked on another of them (a VLAN has the hardware address of the adapter below). An adapter without a
    /// gateway always counts as different, and so does an MTU other than the host's. Blocks for 25 s an adapter at most
    /// on Linux. Nothing is undone: what was applied before a failure stays.
    /// @throws Exception  "W32Gateway::SetIPAddresses failed ! Args : " and the first adapter that refused, with the
    ///                    wanted values; "W32Gateway::GetAdaptersInfos failed !"
    void ChangeIPConfig(Tesmo::Sp<Tesmo::System::Collections::Generic::List<Tesmo::Sp<NICConfig>>> configs) override;

    /// As Platform::WaitForAddressChange.
    bool RunIPChangeWatcher() override;
    /// As Platform::CancelAddressChangeWait.
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
