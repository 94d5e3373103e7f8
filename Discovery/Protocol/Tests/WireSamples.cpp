#include "WireSamples.h"

#include <Discovery/Protocol/AllSendYourSignatureMessage.h>
#include <Discovery/Protocol/ByeMessage.h>
#include <Discovery/Protocol/ChangeYourHostNameMessage.h>
#include <Discovery/Protocol/ChangeYourIPConfigMessage.h>
#include <Discovery/Protocol/DiscoveryVersion.h>
#include <Discovery/Protocol/HelloMessage.h>
#include <Discovery/Protocol/SendYourSignatureMessage.h>
#include <Discovery/Protocol/SignatureBroadcastMessage.h>

namespace Zelkor::Discovery
{
using Tesmo::Sp;
using Tesmo::System::Net::IPAddress;

const std::string& SampleNICText()
{
    static const std::string text =
        R"({"FriendlyName":"LAN 1","MACAddress":"00:1A:2B:3C:4D:5E","IPAddress":"192.168.1.20",)"
        R"("SubNetMask":"255.255.255.0","DefaultGateway":"192.168.1.1","MTU":"1500"})";
    return text;
}

const std::string& SampleHostText()
{
    static const std::string text =
        R"({"HostName":"STUDIO4","IsHostNameReadOnly":false,"RebootRequiredForIPConfigChange":false,)"
        R"("RebootRequiredForHostNameChange":true,"DeviceType":"Windows PC","DeviceFamily":"Computer",)"
        R"("SerialNumber":"4711","NICs":[)" +
        SampleNICText() +
        R"(],"Products":[{"ProductType":"Server","ProductSerialNumber":"88","ProductVersion":"2.1",)"
        R"("ProductName":"Store"}],"FileTransferInfos":{"Port":"21"}})";
    return text;
}

Sp<NICConfig> SampleNIC()
{
    return Sp<NICConfig>(new NICConfig("LAN 1", MACAddress("00:1A:2B:3C:4D:5E"), IPAddress(192, 168, 1, 20),
                                       IPAddress(255, 255, 255, 0), IPAddress(192, 168, 1, 1), "1500"));
}

DiscoveryHost SampleHost()
{
    DiscoveryHost host("STUDIO4", false, false, true, "Windows PC", "Computer", "4711");
    host.AddNIC(SampleNIC());
    host.AddProduct(Sp<DiscoveryHostProduct>(new DiscoveryHostProduct("Server", "88", "2.1", "Store")));
    host.FileTransferInfos->Infos->Add("Port", "21");
    return host;
}

std::vector<WireSample> WireSamples()
{
    const Tesmo::System::Version& version = DiscoveryVersion();
    const DiscoveryHost host = SampleHost();
    const Sp<NICConfig> nic = SampleNIC();
    const MACAddress mac("00:1A:2B:3C:4D:5E");
    const Sp<DiscoveryHost::NICList> nics(new DiscoveryHost::NICList());
    nics->Add(nic);
    const std::string& H = SampleHostText();
    const std::string& N = SampleNICText();
    const auto head = [](const char* type, const char* broadcast)
    {
        return R"({"DiscoveryMessageType":")" + std::string(type) + R"(","DiscoveryVersion":"1.0.23","Broadcast":")" +
               broadcast + R"(")";
    };
    const auto row = [](DiscoveryMessage* message, const std::string& text) {
        return WireSample{Sp<DiscoveryMessage>(message), text};
    };
    return {
        row(new SignatureBroadcastMessage(version, host, nic, true),
            head("SignatureBroadcast", "True") + R"(,"Host":)" + H + R"(,"SourceNIC":)" + N + "}"),
        row(new SignatureBroadcastMessage(version, host, false),
            head("SignatureBroadcast", "False") + R"(,"Host":)" + H + "}"),
        row(new HelloMessage(version, host, nic),
            head("Hello", "True") + R"(,"Host":)" + H + R"(,"SourceNIC":)" + N + "}"),
        row(new ByeMessage(version, host, nic), head("Bye", "True") + R"(,"Host":)" + H + R"(,"SourceNIC":)" + N + "}"),
        row(new SendYourSignatureMessage(version, mac),
            head("SendYourSignature", "True") + R"(,"TargetedMACAddress":"00:1A:2B:3C:4D:5E"})"),
        row(new SendYourSignatureMessage(version), head("SendYourSignature", "False") + "}"),
        row(new AllSendYourSignatureMessage(version), head("AllSendYourSignature", "True") + "}"),
        row(new ChangeYourIPConfigMessage(version, nics),
            head("ChangeYourIPConfig", "True") + R"(,"NewNICConfigs":[)" + N + "]}"),
        row(new ChangeYourHostNameMessage(version, "STUDIO5", mac),
            head("ChangeYourHostName", "True") +
                R"(,"NewHostName":"STUDIO5","TargetedMACAddress":"00:1A:2B:3C:4D:5E"})"),
        row(new ChangeYourHostNameMessage(version, "STUDIO5"),
            head("ChangeYourHostName", "False") + R"(,"NewHostName":"STUDIO5"})"),
    };
}
} // namespace Zelkor::Discovery
