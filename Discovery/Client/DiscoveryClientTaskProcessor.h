#pragma once

#include <Core/System/Random.h>
#include <Discovery/Client/ClientActionArgs.h>
#include <Discovery/Client/HostAnnouncer.h>
#include <Discovery/Client/IDiscoveryClientDataGateway.h>
#include <Discovery/Pipeline/DiscoveryTaskProcessor.h>
#include <Discovery/Protocol/DiscoveryMessageType.h>

namespace Zelkor::Discovery::Client
{
/// Does what the client has to do: sends its messages, and changes the host on request. Every message of the client
/// leaves through this class. Sends and changes never overlap; none is tried twice.
class DiscoveryClientTaskProcessor : public DiscoveryTaskProcessor
{
public:
    /// @param sharedSocket  what a host with one adapter sends from; its failures ask for a restart
    /// @throws std::exception  factory or host is empty
    DiscoveryClientTaskProcessor(const Tesmo::Sp<IDiscoverySocket>& sharedSocket,
                                 const Tesmo::Sp<IDiscoverySocketFactory>& factory,
                                 const Tesmo::Sp<IDiscoveryClientDataGateway>& host);
    DiscoveryClientTaskProcessor(const Tesmo::Sp<IDiscoverySocket>& sharedSocket,
                                 const Tesmo::Sp<IDiscoverySocketFactory>& factory,
                                 const Tesmo::Sp<IDiscoveryClientDataGateway>& host,
                                 const Tesmo::System::String& channelName);

    /// @param args  a ClientActionArgs, of which a copy is queued
    /// @throws std::bad_cast  args is null or of another class
    void EnqueueTask(const Tesmo::System::Object& sender, const Tesmo::System::EventArgs& args) override;

    /// Says goodbye at once, on the calling thread and from sockets of its own: the shared one may be closed by then.
    /// Logs and does nothing where the host can't be read.
    void SendByeMessage();

    /// Whether each configuration may be given to an adapter (IsAcceptable).
    /// @param offender  receives the first one that fails
    static bool ValidateIPConfigs(const NICList& configs, Tesmo::Sp<NICConfig>& offender);

protected:
    void ProcessTask() override;

private:
    void SendHost(const ClientActionArgs& task, DiscoveryMessageType type);
    void ChangeIPConfig(const ClientActionArgs& task);
    void ChangeHostName(const ClientActionArgs& task);
    void ResendSignature(const ClientActionArgs& task);
    void LogSending(DiscoveryMessageType type);
    bool TryGetHost(const char* operation, DiscoveryHost& host);

    Tesmo::Sp<IDiscoveryClientDataGateway> gateway;
    HostAnnouncer announcer;
    Tesmo::System::Random random;
};
} // namespace Zelkor::Discovery::Client
