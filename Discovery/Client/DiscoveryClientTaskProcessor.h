#pragma once

#include <Core/System/Collections/Generic/List.h>
#include <Core/System/Net/Sockets/SocketException.h>
#include <Core/System/Random.h>
#include <Discovery/Client/ClientActionArgs.h>
#include <Discovery/Client/IDiscoveryClientDataGateway.h>
#include <Discovery/Pipeline/DiscoveryTaskProcessor.h>
#include <Discovery/Protocol/DiscoveryMessageType.h>
#include <Discovery/Protocol/SignatureBroadcastMessage.h>
#include <Discovery/Transport/IDiscoverySocketFactory.h>

namespace Zelkor::Discovery::Client
{
/// Does what the client has to do: sends its messages, and changes the host on request. Every message of the client
/// leaves through this class. Sends and changes never overlap; none is tried twice.
class DiscoveryClientTaskProcessor : public DiscoveryTaskProcessor
{
public:
    using NICList = Tesmo::System::Collections::Generic::List<Tesmo::Sp<NICConfig>>;

    /// @throws std::exception  socketFactory or gateway is empty
    DiscoveryClientTaskProcessor(const Tesmo::Sp<IDiscoverySocket>& socket,
                                 const Tesmo::Sp<IDiscoverySocketFactory>& socketFactory,
                                 const Tesmo::Sp<IDiscoveryClientDataGateway>& gateway);
    DiscoveryClientTaskProcessor(const Tesmo::Sp<IDiscoverySocket>& socket,
                                 const Tesmo::Sp<IDiscoverySocketFactory>& socketFactory,
                                 const Tesmo::Sp<IDiscoveryClientDataGateway>& gateway,
                                 const Tesmo::System::String& channelName);

    /// @param args  a ClientActionArgs, of which a copy is queued
    /// @throws std::bad_cast  args is null or of another class
    void EnqueueTask(const Tesmo::System::Object& sender, const Tesmo::System::EventArgs& args) override;

    /// Says goodbye at once, on the calling thread and over sockets of its own: the shared one may be closed by then.
    void SendByeMessage();

    /// Checks address and mask of each configuration: an IPv4 address whose first byte is neither 0 nor 127 and that is
    /// not 255.255.255.255, and a mask without a gap in its bits 0 to 30 (the highest bit is not looked at).
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
    void SendHostMessage(const DiscoveryHost& host, const Tesmo::System::Net::IPAddress& address,
                         DiscoveryMessageType type);
    int SendFromEachInterface(const DiscoveryHost& host, const Tesmo::System::Net::IPAddress& address,
                              DiscoveryMessageType type);
    Tesmo::Sp<IDiscoverySocket> CreateSocket(const Tesmo::System::Net::IPAddress& localAddress);
    void SendMessage(const DiscoveryMessage& message, const Tesmo::System::Net::IPAddress& address,
                     IDiscoverySocket& carrier);
    void SendText(const Tesmo::System::String& json, const Tesmo::System::Net::IPAddress& address,
                  IDiscoverySocket& carrier);
    void HandleSendFailure(const Tesmo::System::Net::Sockets::SocketException& failure);

    Tesmo::Sp<IDiscoverySocketFactory> socketFactory;
    Tesmo::Sp<IDiscoveryClientDataGateway> gateway;
    Tesmo::System::Random random;
};
} // namespace Zelkor::Discovery::Client
