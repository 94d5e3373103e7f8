#include "SignatureBroadcastMessage.h"

#include <Discovery/Protocol/MessageKey.h>

namespace Zelkor::Discovery
{
using Serialization::Json::JSONObject, Serialization::Json::JSONStringer;
using Tesmo::null, Tesmo::Sp, Tesmo::System::String;

namespace
{
const String sourceNICKey = "SourceNIC";
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
    stringer.Key(HostKey.name);
    Host.WriteJSON(stringer);
    if (SourceNIC != null)
    {
        stringer.Key(sourceNICKey);
        SourceNIC->WriteJSON(stringer);
    }
}

void SignatureBroadcastMessage::ReadObject(const JSONObject& object)
{
    DiscoveryMessage::ReadObject(object);
    HostKey.Check(object.IsObject(HostKey.name));
    Host.ReadObject(object.ViewObject(HostKey.name));
    if (!object.IsObject(sourceNICKey))
    {
        DiscoveryChannel(HostKey.channel).Standard("No Source NIC key. Ignoring.");
        SourceNIC.Reset(nullptr);
        return;
    }
    SourceNIC.Reset(new NICConfig());
    SourceNIC->ReadObject(object.ViewObject(sourceNICKey));
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
