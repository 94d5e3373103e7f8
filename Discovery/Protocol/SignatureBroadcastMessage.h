#pragma once

#include <Core/System/Sp.h>
#include <Discovery/Protocol/DiscoveryHost.h>
#include <Discovery/Protocol/DiscoveryMessage.h>
#include <Discovery/Protocol/NICConfig.h>

namespace Zelkor::Discovery
{
/// A host tells about itself, unasked or when it was asked to.
class SignatureBroadcastMessage : public DiscoveryMessage
{
public:
    SignatureBroadcastMessage() = default;
    explicit SignatureBroadcastMessage(const Tesmo::System::Version& version);
    /// Copies the host.
    SignatureBroadcastMessage(const Tesmo::System::Version& version, const DiscoveryHost& host, bool broadcast);
    /// Copies the host and shares the interface.
    SignatureBroadcastMessage(const Tesmo::System::Version& version, const DiscoveryHost& host,
                              const Tesmo::Sp<NICConfig>& sourceNIC, bool broadcast);

    DiscoveryMessageType GetMessageType() const override;
    void WriteJSON(Serialization::Json::JSONStringer& stringer) const override;
    void ReadJSON(const Tesmo::System::String& text) override;

    /// Add a copy to the host.
    void AddNIC(const NICConfig& nic);
    void AddProduct(const DiscoveryHostProduct& product);
    /// Replaces the host's record by a copy.
    void SetFileTransferInfos(const FileTransferInfos& infos);

    DiscoveryHost Host;             ///< the sender
    Tesmo::Sp<NICConfig> SourceNIC; ///< the interface that the message leaves by; may be empty
};
} // namespace Zelkor::Discovery
