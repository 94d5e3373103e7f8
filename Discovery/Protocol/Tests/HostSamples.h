#pragma once

#include <Discovery/Protocol/DiscoveryHost.h>

#include <string>

namespace Zelkor::Discovery
{
/// A host as an object and as its exact bytes.
inline const std::string SampleNICText =
    R"({"FriendlyName":"LAN 1","MACAddress":"00:1A:2B:3C:4D:5E","IPAddress":"192.168.1.20",)"
    R"("SubNetMask":"255.255.255.0","DefaultGateway":"192.168.1.1","MTU":"1500"})";

inline const std::string SampleHostText =
    R"({"HostName":"STUDIO4","IsHostNameReadOnly":false,"RebootRequiredForIPConfigChange":false,)"
    R"("RebootRequiredForHostNameChange":true,"DeviceType":"Windows PC","DeviceFamily":"Computer",)"
    R"("SerialNumber":"4711","NICs":[)" +
    SampleNICText +
    R"(],"Products":[{"ProductType":"Server","ProductSerialNumber":"88","ProductVersion":"2.1",)"
    R"("ProductName":"Store"}],"FileTransferInfos":{"Port":"21"}})";

inline Tesmo::Sp<NICConfig> SampleNIC()
{
    using Tesmo::System::Net::IPAddress;
    return Tesmo::Sp<NICConfig>(new NICConfig("LAN 1", MACAddress("00:1A:2B:3C:4D:5E"), IPAddress(192, 168, 1, 20),
                                              IPAddress(255, 255, 255, 0), IPAddress(192, 168, 1, 1), "1500"));
}

inline DiscoveryHost SampleHost()
{
    DiscoveryHost host("STUDIO4", false, false, true, "Windows PC", "Computer", "4711");
    host.AddNIC(SampleNIC());
    host.AddProduct(Tesmo::Sp<DiscoveryHostProduct>(new DiscoveryHostProduct("Server", "88", "2.1", "Store")));
    host.FileTransferInfos->Infos->Add("Port", "21");
    return host;
}
} // namespace Zelkor::Discovery
