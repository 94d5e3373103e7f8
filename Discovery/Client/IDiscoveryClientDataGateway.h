#pragma once

#include <Core/System/Collections/Generic/List.h>
#include <Core/System/Sp.h>
#include <Core/System/String.h>
#include <Core/System/Virtual.h>
#include <Discovery/Protocol/DiscoveryHost.h>
#include <Discovery/Protocol/DiscoveryHostProduct.h>
#include <Discovery/Protocol/FileTransferInfos.h>
#include <Discovery/Protocol/MACAddress.h>
#include <Discovery/Protocol/NICConfig.h>

namespace Zelkor::Discovery::Client
{
/// The one door between the client and the machine it runs on: all that is announced about the host and every change
/// made to it. Reading may go on in several threads at once; nothing is cached. An operation that fails throws an
/// Exception and leaves it to its caller to log it; the sources that must not stop an announcement never fail and
/// give an empty value instead.
class IDiscoveryClientDataGateway : public Tesmo::System::Virtual
{
public:
    /// The hardware address of every adapter whose address has 6 bytes, in the host's order.
    /// @throws Exception  the host has no adapter, or they can't be read
    virtual Tesmo::Sp<Tesmo::System::Collections::Generic::List<MACAddress>> GetMACAddress() = 0;

    /// One record for every adapter whose hardware address has 6 bytes, in the host's order.
    /// @throws Exception  the host has no adapter, or they can't be read
    virtual Tesmo::Sp<NICList> GetNICConfigs() = 0;

    /// The installed products; never fails.
    virtual Tesmo::Sp<Tesmo::System::Collections::Generic::List<Tesmo::Sp<DiscoveryHostProduct>>> GetProducts() = 0;

    /// The file-transfer infos; never fails.
    virtual Tesmo::Sp<FileTransferInfos> GetFileTransferInfos() = 0;

    /// @throws Exception  the name can't be read
    virtual Tesmo::System::String GetHostName() = 0;

    /// What kind of device the host is ("Linux PC", "Windows PC") and of which family; never fail.
    virtual Tesmo::System::String GetDeviceType() = 0;
    virtual Tesmo::System::String GetDeviceFamily() = 0;

    /// The machine's identity number as decimal text, empty if it has none; never fails.
    virtual Tesmo::System::String GetSerialNumber() = 0;

    /// The whole host, read through the other operations of this object.
    /// @throws Exception  the name or the adapters can't be read
    virtual DiscoveryHost GetHost() = 0;

    /// Applies one configuration: the list overload with a copy of config as its only element.
    virtual void ChangeIPConfig(const NICConfig& config) = 0;

    /// Changes the host name, and has the host restarted for it. The present name changes nothing.
    /// @throws Exception  the change or the restart was refused
    virtual void ChangeHostName(const Tesmo::System::String& newName) = 0;

    /// What the host tells others about changes of its name and addresses; never fail.
    virtual bool IsHostNameReadOnly() = 0;
    virtual bool RebootRequiredForIPConfigChange() = 0;
    virtual bool RebootRequiredForHostNameChange() = 0;

    /// Applies each configuration to the adapter with its hardware address; where several share it, the implementation
    /// chooses. Configurations of other machines' adapters, and those that change nothing, are passed over.
    /// @throws Exception  an adapter refused its configuration; those before it stay changed
    virtual void ChangeIPConfig(Tesmo::Sp<NICList> configs) = 0;

    /// Blocks without limit until an address of the host changes or CancelWaitForIPChange ends the wait. One watcher
    /// at a time in the process.
    /// @returns true when a change was signalled; a cancelled wait may answer either way, a failed one false
    virtual bool RunIPChangeWatcher() = 0;

    /// Ends the wait of RunIPChangeWatcher from another thread.
    /// @returns the platform's result, without meaning to callers
    virtual int CancelWaitForIPChange() = 0;
};
} // namespace Zelkor::Discovery::Client
