#include "DiscoveryClient.h"

#include <Core/System/Threading/Lock.h>
#include <Discovery/Client/BroadcastSignatureAction.h>
#include <Discovery/Client/ClientActionArgs.h>
#include <Discovery/Client/HelloAction.h>
#include <Discovery/Pipeline/CompleteWorker.h>
#include <Discovery/Pipeline/Required.h>
#include <Discovery/Protocol/DiscoveryVersion.h>
#include <Discovery/Transport/DiscoverySocketUdpClient.h>
#include <Discovery/Transport/DiscoverySocketUdpClientFactory.h>

namespace Zelkor::Discovery::Client
{
using Tesmo::null, Tesmo::Sp, Tesmo::System::EventArgs, Tesmo::System::EventHandler, Tesmo::System::Exception,
    Tesmo::System::String, Tesmo::System::Net::IPAddress, Tesmo::System::Threading::Lock;

DiscoveryClient::DiscoveryClient(const Sp<IDiscoveryClientDataGateway>& host)
    : DiscoveryClient(host, DiscoveryPorts::Default())
{
}

DiscoveryClient::DiscoveryClient(const Sp<IDiscoveryClientDataGateway>& host, const Sp<DiscoveryPorts>& clientPorts,
                                 const Sp<RestartSpacing>& restartSpacing)
    : ports(Required(clientPorts)),
      gateway(Required(host)),
      channel("Discovery Client"),
      async(channel, restartSpacing, [this](AsyncRequest request) { Perform(request); })
{
    CreateSocket();
    socketFactory.Reset(new DiscoverySocketUdpClientFactory(ports->GetLocalPort(), ports->GetRemotePort()));
    CreateWorkers();
    HookEvents();
}

DiscoveryClient::DiscoveryClient(const Sp<IDiscoveryClientDataGateway>& host, const Sp<IBroadcastProvider>& provider)
    : DiscoveryClient(host)
{
    SetBroadcastProvider(provider);
}

DiscoveryClient::~DiscoveryClient()
{
    async.End();
    try
    {
        if (state == ClientState::Running)
        {
            Stop();
        }
    }
    catch (const std::exception&) // what it has not stopped ends with the stages
    {
    }
    DropStages();
}

void DiscoveryClient::CreateSocket()
{
    socket.Reset(new DiscoverySocketUdpClient(ports->GetLocalPort(), ports->GetRemotePort()));
}

void DiscoveryClient::CreateWorkers()
{
    {
        const Lock lock(processorLock);
        taskProcessor.Reset(new CompleteWorker<DiscoveryClientTaskProcessor>(socket, socketFactory, gateway));
    }
    messageParser.Reset(new CompleteWorker<DiscoveryClientMessageParser>(gateway));
    receiver.Reset(new CompleteWorker<DiscoveryReceiver>(socket, messageParser));
    ipChangeWatcher.Reset(new DiscoveryClientIPChangeWatcher(gateway));
}

void DiscoveryClient::HookEvents()
{
    messageParser->ActionRequested += EventHandler(*taskProcessor, &DiscoveryClientTaskProcessor::EnqueueTask);
    receiver->RestartRequested += EventHandler(*this, &DiscoveryClient::AsyncRestart);
    taskProcessor->RestartRequested += EventHandler(*this, &DiscoveryClient::AsyncRestart);
    receiver->StopRequested += EventHandler(*this, &DiscoveryClient::AsyncStop);
    taskProcessor->StopRequested += EventHandler(*this, &DiscoveryClient::AsyncStop);
    ipChangeWatcher->IPChanged += EventHandler(*this, &DiscoveryClient::SendSignature);
}

void DiscoveryClient::UnhookEvents()
{
    messageParser->ActionRequested -= EventHandler(*taskProcessor, &DiscoveryClientTaskProcessor::EnqueueTask);
    receiver->RestartRequested -= EventHandler(*this, &DiscoveryClient::AsyncRestart);
    taskProcessor->RestartRequested -= EventHandler(*this, &DiscoveryClient::AsyncRestart);
    receiver->StopRequested -= EventHandler(*this, &DiscoveryClient::AsyncStop);
    taskProcessor->StopRequested -= EventHandler(*this, &DiscoveryClient::AsyncStop);
    ipChangeWatcher->IPChanged -= EventHandler(*this, &DiscoveryClient::SendSignature);
}

void DiscoveryClient::Start()
{
    const Lock lock(lifecycleLock);
    LogCritical(String::Format("Starting Discovery Client service ({0})", DiscoveryVersion()));
    if (state == ClientState::Starting || state == ClientState::Running)
    {
        LogCritical(String::Format("Client's current state : {0} ! -> Starting aborted.", ToDisplayText(state)));
        return;
    }
    state = ClientState::Starting;
    if (needsRebuild)
    {
        CreateSocket();
        CreateWorkers();
        HookEvents();
        needsRebuild = false;
    }
    async.BeginStart();
    taskProcessor->Start();
    messageParser->Start();
    receiver->Start();
    ipChangeWatcher->Start();
    SendHelloMessage();
    async.EndStart();
    state = ClientState::Running;
}

void DiscoveryClient::Stop()
{
    const Lock lock(lifecycleLock);
    LogCritical("Stopping Discovery Client service");
    if (state != ClientState::Running)
    {
        LogCritical(String::Format("Client's current state : {0} ! -> Stopping aborted.", ToDisplayText(state)));
        async.Withdraw();
        return;
    }
    state = ClientState::Stopping;
    ipChangeWatcher->Stop();
    receiver->Stop();
    messageParser->Stop();
    taskProcessor->Stop();
    UnhookEvents();
    async.Withdraw(); // this stop is the answer to what the stages have asked for
    socket.Reset(nullptr);
    taskProcessor->SendByeMessage();
    DropStages();
    needsRebuild = true;
    state = ClientState::Stopped;
    LogCritical("Discovery Client service stopped");
}

void DiscoveryClient::DropStages()
{
    ipChangeWatcher.Reset(nullptr);
    receiver.Reset(nullptr);
    messageParser.Reset(nullptr);
    const Sp<DiscoveryClientTaskProcessor> last = TaskProcessor(); // ended when nobody can wait for the lock any more
    const Lock lock(processorLock);
    taskProcessor.Reset(nullptr);
}

Sp<DiscoveryClientTaskProcessor> DiscoveryClient::TaskProcessor() const
{
    const Lock lock(processorLock);
    return taskProcessor;
}

void DiscoveryClient::LogCritical(const String& text)
{
    channel.Critical(text);
}

void DiscoveryClient::SendHelloMessage()
{
    DiscoveryHost host;
    if (TryGetHost("SendHelloMessage", host))
    {
        EnqueueBroadcast(Sp<ClientAction>(new HelloAction(host)));
    }
}

void DiscoveryClient::SendSignature(const Object&, const EventArgs&)
{
    DiscoveryHost host;
    if (TryGetHost("SendSignature", host))
    {
        EnqueueBroadcast(Sp<ClientAction>(new BroadcastSignatureAction(host)));
    }
}

bool DiscoveryClient::TryGetHost(const char* operation, DiscoveryHost& host)
{
    try
    {
        host = gateway->GetHost();
        return true;
    }
    catch (const Exception& failure)
    {
        const String text = String::Format(
            "{0} aborted : exception caught during call to IDiscoveryClientDataGateway::GetHost !", operation);
        channel.Critical(text, failure);
        return false;
    }
}

void DiscoveryClient::EnqueueBroadcast(const Sp<ClientAction>& action)
{
    if (const Sp<DiscoveryClientTaskProcessor> processor = TaskProcessor(); processor != null)
    {
        processor->EnqueueTask(*this, ClientActionArgs(action, IPAddress::Broadcast));
    }
}

void DiscoveryClient::SendByeMessage()
{
    const Lock lock(lifecycleLock); // a send that fails raises an event that Start and Stop change (decision 124)
    if (const Sp<DiscoveryClientTaskProcessor> processor = TaskProcessor(); processor != null)
    {
        processor->SendByeMessage();
    }
}

void DiscoveryClient::SetBroadcastProvider(const Sp<IBroadcastProvider>& provider)
{
    if (const Sp<DiscoveryClientTaskProcessor> processor = TaskProcessor(); processor != null)
    {
        processor->SetBroadcastProvider(provider);
    }
}

void DiscoveryClient::AsyncRestart(const Object&, const EventArgs&)
{
    async.Ask(AsyncRequest::Restart);
}

void DiscoveryClient::AsyncStop(const Object&, const EventArgs&)
{
    async.Ask(AsyncRequest::Stop);
}

void DiscoveryClient::Perform(AsyncRequest request)
{
    Stop();
    if (request == AsyncRequest::Restart)
    {
        StartAgain();
    }
}

/// A start that can't build its socket leaves the client stopped and is tried again.
void DiscoveryClient::StartAgain()
{
    const Lock lock(lifecycleLock); // nobody comes between the failure and the next try
    try
    {
        Start();
    }
    catch (const Exception&)
    {
        const bool isConstructionFailure = state == ClientState::Starting && needsRebuild;
        if (!isConstructionFailure)
        {
            throw;
        }
        state = ClientState::Stopped;
        async.FailStart();
    }
}
} // namespace Zelkor::Discovery::Client
