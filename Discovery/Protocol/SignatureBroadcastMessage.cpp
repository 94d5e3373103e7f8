#include <Discovery/Protocol/SignatureBroadcastMessage.h>

#include <Core/System/FormatException.h>
#include <Core/System/ThrowSite.h>
#include <Discovery/Protocol/DiscoveryLogger.h>
#include <Serialization.Json/JSONObject.h>

namespace Zelkor::Discovery
{
using Serialization::Json::JSONObject;
using Serialization::Json::JSONStringer;
using Tesmo::null;
using Tesmo::Sp;
using Tesmo::System::FormatException;
using Tesmo::System::String;
using Tesmo::System::LogStreams::LogStreamChannel;
using Tesmo::System::LogStreams::LogStreamLevel;

namespace
{
const String hostKey = "Host";
const String sourceNICKey = "SourceNIC";

void Log(const char* text, LogStreamLevel level)
{
    DiscoveryLogger::Instance().Write(LogStreamChannel("SignatureBroadcastMessage"), text, level);
}
} // namespace

SignatureBroadcastMessage::SignatureBroadcastMessage(const Tesmo::System::Version& version) : DiscoveryMessage(version)
{
}

SignatureBroadcastMessage::SignatureBroadcastMessage(const Tesmo::System::Version& version, const DiscoveryHost& host,
                                                     bool broadcast)
    : DiscoveryMessage(version, broadcast),
      Host(host)
{
}

SignatureBroadcastMessage::SignatureBroadcastMessage(const Tesmo::System::Version& version, const DiscoveryHost& host,
                                                     const Sp<NICConfig>& sourceNIC, bool broadcast)
    : DiscoveryMessage(version, broadcast),
      Host(host),
      SourceNIC(sourceNIC)
{
}

DiscoveryMessageType SignatureBroadcastMessage::GetMessageType() const
{
    return DiscoveryMessageType::SignatureBroadcast;
}

void SignatureBroadcastMessage::WriteJSON(JSONStringer& stringer) const
{
    DiscoveryMessage::WriteJSON(stringer);
    stringer.Key(hostKey);
    Host.WriteJSON(stringer);
    if (!(SourceNIC == null))
    {
        stringer.Key(sourceNICKey);
        SourceNIC->WriteJSON(stringer);
    }
}

void SignatureBroadcastMessage::ReadJSON(const String& text)
{
    DiscoveryMessage::ReadJSON(text);
    const JSONObject object(text);
    JSONObject nested;
    if (!object.TryGetValue(hostKey, nested))
    {
        Log("No Host key !!! => BAD MESSAGE FORMAT !", LogStreamLevel::Critical);
        throw FormatException(ThrowSite);
    }
    Host.ReadJSON(nested.ToString());
    if (!object.TryGetValue(sourceNICKey, nested))
    {
        Log("No Source NIC key. Ignoring.", LogStreamLevel::Standard);
        SourceNIC.Reset(nullptr);
        return;
    }
    SourceNIC.Reset(new NICConfig());
    SourceNIC->ReadJSON(nested.ToString());
}

void SignatureBroadcastMessage::AddNIC(const NICConfig& nic)
{
    Host.AddNIC(Sp<NICConfig>(new NICConfig(nic)));
}

void SignatureBroadcastMessage::AddProduct(const DiscoveryHostProduct& product)
{
    Host.AddProduct(Sp<DiscoveryHostProduct>(new DiscoveryHostProduct(product)));
}

void SignatureBroadcastMessage::SetFileTransferInfos(const FileTransferInfos& infos)
{
    Host.FileTransferInfos.Reset(new FileTransferInfos(infos));
}
} // namespace Zelkor::Discovery
