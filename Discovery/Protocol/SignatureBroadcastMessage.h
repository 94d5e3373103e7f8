#pragma once

#include <Core/System/Sp.h>
#include <Discovery/Protocol/DiscoveryHost.h>
#include <Discovery/Protocol/DiscoveryMessage.h>
#include <Discovery/Protocol/NICConfig.h>

namespace Zelkor::Discovery
{
/// Tells about a host, on its own account or as the answer to a request.
class SignatureBroadcastMessage : public DiscoveryMessage
{
public:
    SignatureBroadcastMessage() = default;
    /// By broadcast.
    explicit SignatureBroadcastMessage(const Tesmo::System::Version& version);
    /// Copy the host; the second shares the adapter that the message leaves by.
    SignatureBroadcastMessage(const Tesmo::System::Version& version, const DiscoveryHost& host, bool broadcast);
    SignatureBroadcastMessage(const Tesmo::System::Version& version, const DiscoveryHost& host,
                              const Tesmo::Sp<NICConfig>& sourceNIC, bool broadcast);

    DiscoveryMessageType GetMessageType() const override;
    void WriteJSON(Serialization::Json::JSONStringer& stringer) const override;
    void ReadObject(const Serialization::Json::JSONObject& object) override;

    /// Add a copy to the host.
    void AddNIC(const NICConfig& nic);
    void AddProduct(const DiscoveryHostProduct& product);
    /// Replaces the host's record by a copy.
    void SetFileTransferInfos(const FileTransferInfos& infos);

    DiscoveryHost Host;             ///< the sender
    Tesmo::Sp<NICConfig> SourceNIC; ///< the adapter that the message leaves by; may be empty
};
} // namespace Zelkor::Discovery
