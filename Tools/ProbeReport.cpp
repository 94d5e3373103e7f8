#include "ProbeReport.h"

#include <Core/System/DateTime.h>
#include <Core/System/Exception.h>
#include <Core/System/FormatException.h>
#include <Core/System/Sp.h>
#include <Discovery/Protocol/DiscoveryMessageDeserializer.h>
#include <Discovery/Protocol/DiscoveryMessageType.h>
#include <Discovery/Protocol/SignatureBroadcastMessage.h>
#include <Serialization.Json/JSONObject.h>

namespace Zelkor::Discovery::Tools
{
using Serialization::Json::JSONObject;
using Tesmo::null, Tesmo::Sp, Tesmo::System::DateTime, Tesmo::System::Exception, Tesmo::System::FormatException,
    Tesmo::System::String, Tesmo::System::Net::IPEndPoint;

namespace
{
String AdapterLine(const NICConfig& nic)
{
    return String::Format("    {0,-12} {1}  {2}/{3}  gateway {4}\n", nic.FriendlyName, nic.MACAddress.ToString(),
                          nic.IPAddress, nic.SubNetMask,
                          nic.HasDefaultGateway ? nic.DefaultGateway.ToString() : String("none"));
}

String HostLines(const SignatureBroadcastMessage& message)
{
    const DiscoveryHost& host = message.Host;
    String lines = String::Format("  {0} ({1}, {2}{3})", host.HostName, host.DeviceType, host.DeviceFamily,
                                  host.SerialNumber.IsEmpty() ? String() : ", serial " + host.SerialNumber);
    if (message.SourceNIC != null)
    {
        lines += " by " + message.SourceNIC->FriendlyName;
    }
    lines += "\n";
    for (const Sp<NICConfig>& nic : *host.NICs)
    {
        lines += AdapterLine(*nic);
    }
    for (const Sp<DiscoveryHostProduct>& product : *host.Products)
    {
        lines += String::Format("    product {0} {1}, serial {2} ({3})\n", product->ProductName,
                                product->ProductVersion, product->ProductSerialNumber, product->ProductType);
    }
    return lines;
}

String MessageLines(const String& text)
{
    try
    {
        const Sp<DiscoveryMessage> message(DiscoveryMessageDeserializer().Deserialize(text));
        const String head = String::Format("{0}, version {1}, {2}", ToWireName(message->GetMessageType()),
                                           message->Version, message->Broadcast ? "to all" : "to one");
        const auto* const announcement = dynamic_cast<const SignatureBroadcastMessage*>(&*message);
        return head + (announcement == nullptr ? String("\n") : HostLines(*announcement));
    }
    catch (const Exception& failure)
    {
        return String::Format("no message ({0}): {1}\n", failure.Message(), text);
    }
}
} // namespace

std::string ReportForPeople(const String& text, const IPEndPoint& sender)
{
    const String head = String::Format("{0}  {1}  ", DateTime::Now().ToLongTimeString(), sender);
    return (head + MessageLines(text)).Utf8();
}

std::string ReportForPrograms(const String& text, const IPEndPoint& sender)
{
    JSONObject report;
    report.Put("time", DateTime::Now().ToLongTimeString());
    report.Put("sender", sender.ToString());
    try
    {
        report.Put("message", JSONObject(text));
    }
    catch (const FormatException&)
    {
        report.Put("text", text);
    }
    return report.ToString().Utf8() + "\n";
}
} // namespace Zelkor::Discovery::Tools
