#include "DiscoveryClientTaskProcessor.h"

#include <Core/System/Threading/Thread.h>
#include <Discovery/Client/ChangeYourHostNameAction.h>
#include <Discovery/Client/ChangeYourIPConfigAction.h>
#include <Discovery/Client/IPConfigRules.h>
#include <Discovery/Pipeline/Required.h>

#include <algorithm>
#include <typeinfo>

namespace Zelkor::Discovery::Client
{
using Tesmo::IsNull, Tesmo::Sp, Tesmo::System::EventArgs, Tesmo::System::Exception, Tesmo::System::String,
    Tesmo::System::Net::IPAddress, Tesmo::System::Threading::Thread;

namespace
{
constexpr int DelaySteps = 10; // answers to one broadcast are spread over this many steps
constexpr int DelayStep = 10;  // milliseconds
} // namespace

DiscoveryClientTaskProcessor::DiscoveryClientTaskProcessor(const Sp<IDiscoverySocket>& sharedSocket,
                                                           const Sp<IDiscoverySocketFactory>& factory,
                                                           const Sp<IDiscoveryClientDataGateway>& host)
    : DiscoveryClientTaskProcessor(sharedSocket, factory, host, "ClientTaskProcessor")
{
}

DiscoveryClientTaskProcessor::DiscoveryClientTaskProcessor(const Sp<IDiscoverySocket>& sharedSocket,
                                                           const Sp<IDiscoverySocketFactory>& factory,
                                                           const Sp<IDiscoveryClientDataGateway>& host,
                                                           const String& channelName)
    : DiscoveryTaskProcessor(sharedSocket, channelName),
      gateway(Required(host)),
      announcer(channel,
                {sharedSocket, factory, [this] { return BroadcastProvider(); }, [this] { RaiseRestartRequested(); }})
{
}

void DiscoveryClientTaskProcessor::EnqueueTask(const Object&, const EventArgs& args)
{
    if (IsNull(args))
    {
        throw std::bad_cast();
    }
    tasks.Enqueue(Sp<EventArgs>(new ClientActionArgs(dynamic_cast<const ClientActionArgs&>(args))));
}

void DiscoveryClientTaskProcessor::ProcessTask()
{
    Sp<EventArgs> next;
    if (!tasks.TryDequeue(next))
    {
        return; // a count without a task is the signal of Stop
    }
    const auto& task = dynamic_cast<const ClientActionArgs&>(*next);
    switch (task.Action->Type)
    {
    case ClientActionType::BroadcastSignature:
        SendHost(task, DiscoveryMessageType::SignatureBroadcast);
        break;
    case ClientActionType::Hello:
        SendHost(task, DiscoveryMessageType::Hello);
        break;
    case ClientActionType::ChangeYourIPConfig:
        ChangeIPConfig(task);
        break;
    case ClientActionType::ChangeYourHostName:
        ChangeHostName(task);
        break;
    }
}

void DiscoveryClientTaskProcessor::SendHost(const ClientActionArgs& task, DiscoveryMessageType type)
{
    DiscoveryHost host;
    if (!TryGetHost("Sending of message", host))
    {
        return;
    }
    if (type == DiscoveryMessageType::SignatureBroadcast)
    {
        // decision 125
        Thread::Sleep(std::min(random.Next(DelaySteps), DelaySteps - 1) * DelayStep); // Next can give its bound
    }
    LogSending(type);
    announcer.SendHostMessage(host, task.Address, type);
}

void DiscoveryClientTaskProcessor::ChangeIPConfig(const ClientActionArgs& task)
{
    const Sp<NICList> configs = dynamic_cast<const ChangeYourIPConfigAction&>(*task.Action).NICConfigs;
    Sp<NICConfig> offender;
    if (!ValidateIPConfigs(*configs, offender))
    {
        channel.Critical("A given IP config is invalid ! => Not changing and resending current signature.");
        channel.Critical(String::Format("Invalid IP config : {0}/{1}/{2}", offender->IPAddress, offender->SubNetMask,
                                        offender->DefaultGateway));
        ResendSignature(task);
        return;
    }
    channel.Standard("Changing IP Config");
    try
    {
        gateway->ChangeIPConfig(configs); // the new signature follows when the platform reports the change
    }
    catch (const Exception& failure)
    {
        channel.Critical("Exception caught during call to IDiscoveryClientDataGateway::ChangeIPConfig !", failure);
        channel.Critical("IP Config change returned an exception -> sending signature.");
        ResendSignature(task);
    }
}

void DiscoveryClientTaskProcessor::ChangeHostName(const ClientActionArgs& task)
{
    const String& hostName = dynamic_cast<const ChangeYourHostNameAction&>(*task.Action).HostName;
    channel.Standard("Changing HostName");
    try
    {
        gateway->ChangeHostName(hostName);
    }
    catch (const Exception& failure)
    {
        channel.Critical("Exception caught during call to IDiscoveryClientDataGateway::ChangeHostName !", failure);
        channel.Critical("HostName change returned an exception -> sending signature.");
        ResendSignature(task);
        return;
    }
    if (!gateway->RebootRequiredForHostNameChange())
    {
        ResendSignature(task);
    }
}

void DiscoveryClientTaskProcessor::ResendSignature(const ClientActionArgs& task)
{
    const Sp<ClientAction> signature(new ClientAction(ClientActionType::BroadcastSignature));
    EnqueueTask(*this, ClientActionArgs(signature, task.Address));
}

bool DiscoveryClientTaskProcessor::ValidateIPConfigs(const NICList& configs, Sp<NICConfig>& offender)
{
    const auto found = std::find_if(configs.begin(), configs.end(),
                                    [](const Sp<NICConfig>& config) { return !IsAcceptable(*config); });
    if (found == configs.end())
    {
        return true;
    }
    offender = *found;
    return false;
}

void DiscoveryClientTaskProcessor::SendByeMessage()
{
    LogSending(DiscoveryMessageType::Bye);
    DiscoveryHost host;
    if (TryGetHost("SendByeMessage", host))
    {
        announcer.SendHostMessage(host, IPAddress::Broadcast, DiscoveryMessageType::Bye);
    }
}

void DiscoveryClientTaskProcessor::LogSending(DiscoveryMessageType type)
{
    channel.Standard("Sending message of type " + ToWireName(type));
}

bool DiscoveryClientTaskProcessor::TryGetHost(const char* operation, DiscoveryHost& host)
{
    try
    {
        host = gateway->GetHost();
        return true;
    }
    catch (const Exception& failure)
    {
        channel.Critical(String::Format("{0} aborted : exception caught during call to "
                                        "IDiscoveryClientDataGateway::GetHost !",
                                        operation),
                         failure);
        return false;
    }
}
} // namespace Zelkor::Discovery::Client
