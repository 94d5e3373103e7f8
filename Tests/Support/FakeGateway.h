#pragma once

#include <Core/System/Exception.h>
#include <Core/System/Threading/Semaphore.h>
#include <Discovery/Client/IDiscoveryClientDataGateway.h>
#include <gmock/gmock.h>

#include <climits>

namespace Zelkor::Discovery::Client
{
/// A host that the test describes. What is in `failing` throws; `calls` keeps the changes. What is mocked the client
/// does not call.
class FakeGateway : public IDiscoveryClientDataGateway
{
public:
    using MACList = Tesmo::System::Collections::Generic::List<MACAddress>;
    using ProductList = Tesmo::System::Collections::Generic::List<Tesmo::Sp<DiscoveryHostProduct>>;

    static Tesmo::Sp<NICConfig> MakeNIC(const char* mac, const char* address, const char* mask = "255.0.0.0")
    {
        return Tesmo::Sp<NICConfig>(new NICConfig(mac, MACAddress(Tesmo::System::String(mac)),
                                                  Tesmo::System::Net::IPAddress::Parse(address),
                                                  Tesmo::System::Net::IPAddress::Parse(mask), "1500"));
    }

    Tesmo::Sp<MACList> GetMACAddress() override
    {
        Check("GetMACAddress");
        Tesmo::Sp<MACList> addresses(new MACList);
        for (const Tesmo::Sp<NICConfig>& nic : *host.NICs)
        {
            addresses->Add(nic->MACAddress);
        }
        return addresses;
    }
    MOCK_METHOD(Tesmo::Sp<NICList>, GetNICConfigs, (), (override));
    MOCK_METHOD(Tesmo::Sp<ProductList>, GetProducts, (), (override));
    MOCK_METHOD(Tesmo::Sp<FileTransferInfos>, GetFileTransferInfos, (), (override));
    MOCK_METHOD(Tesmo::System::String, GetHostName, (), (override));
    MOCK_METHOD(Tesmo::System::String, GetDeviceType, (), (override));
    MOCK_METHOD(Tesmo::System::String, GetDeviceFamily, (), (override));
    MOCK_METHOD(Tesmo::System::String, GetSerialNumber, (), (override));
    DiscoveryHost GetHost() override
    {
        beforeHost();
        Check("GetHost");
        return host;
    }
    MOCK_METHOD(void, ChangeIPConfig, (const NICConfig&), (override));
    void ChangeHostName(const Tesmo::System::String& newName) override
    {
        calls += "name " + newName.Utf8() + ";";
        Check("ChangeHostName");
    }
    MOCK_METHOD(bool, IsHostNameReadOnly, (), (override));
    MOCK_METHOD(bool, RebootRequiredForIPConfigChange, (), (override));
    bool RebootRequiredForHostNameChange() override
    {
        return rebootRequired;
    }
    void ChangeIPConfig(Tesmo::Sp<NICList> configs) override
    {
        calls += std::to_string(configs->Count()) + " configs;";
        Check("ChangeIPConfig");
    }
    bool RunIPChangeWatcher() override
    {
        watching.Release();
        changes.WaitOne();
        Check("RunIPChangeWatcher");
        return changeResult;
    }
    int CancelWaitForIPChange() override
    {
        changes.Release();
        onCancel();
        Check("CancelWaitForIPChange");
        return 0;
    }

    DiscoveryHost host;
    bool rebootRequired = true;
    std::atomic<bool> changeResult = true;
    std::string failing; ///< the name of one operation
    std::string calls;
    std::function<void()> beforeHost = [] {}; ///< runs within GetHost
    std::function<void()> onCancel = [] {};   ///< runs within CancelWaitForIPChange, when the wait is ended
    Tesmo::System::Threading::Semaphore changes{0, INT_MAX};  ///< one count ends one wait for a change
    Tesmo::System::Threading::Semaphore watching{0, INT_MAX}; ///< counts the waits that have begun

private:
    void Check(const char* operation) const
    {
        if (failing == operation)
        {
            throw Tesmo::System::Exception("the gateway failed", ThrowSite);
        }
    }
};
} // namespace Zelkor::Discovery::Client
