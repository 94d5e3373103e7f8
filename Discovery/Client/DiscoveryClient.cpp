#include "DiscoveryClient.h"

#include "BroadcastSignatureAction.h"
#include "ClientActionArgs.h"
#include "HelloAction.h"
#include "Required.h"

#include <Core/System/Threading/Lock.h>
#include <Discovery/Protocol/DiscoveryLogger.h>
#include <Discovery/Protocol/DiscoveryVersion.h>
#include <Discovery/Transport/DiscoverySocketUdpClient.h>
#include <Discovery/Transport/DiscoverySocketUdpClientFactory.h>

namespace Zelkor::Discovery::Client
{
using Tesmo::null;
using Tesmo::Sp;
using Tesmo::System::EventArgs;
using Tesmo::System::EventHandler;
using Tesmo::System::Exception;
using Tesmo::System::Object;
using Tesmo::System::String;
using Tesmo::System::LogStreams::LogStreamLevel;
using Tesmo::System::Net::IPAddress;
using Tesmo::System::Threading::Lock;
using Tesmo::System::Threading::ParameterizedThreadStart;
using Tesmo::System::Threading::Thread;
using Tesmo::System::Threading::ThreadState;

DiscoveryClient::DiscoveryClient(const Sp<IDiscoveryClientDataGateway>& givenGateway)
    : DiscoveryClient(givenGateway, DiscoveryPorts::Default())
{
}

DiscoveryClient::DiscoveryClient(const Sp<IDiscoveryClientDataGateway>& givenGateway,
                                 const Sp<DiscoveryPorts>& givenPorts)
    : ports(Required(givenPorts)),
      gateway(Required(givenGateway)),
      channel("Discovery Client")
{
    CreateSocket();
    socketFactory.Reset(new DiscoverySocketUdpClientFactory(ports->GetLocalPort(), ports->GetRemotePort()));
    CreateWorkers();
    HookEvents();
}

DiscoveryClient::DiscoveryClient(const Sp<IDiscoveryClientDataGateway>& givenGateway,
                                 const Sp<IBroadcastProvider>& provider)
    : DiscoveryClient(givenGateway)
{
    SetBroadcastProvider(provider);
}

DiscoveryClient::~DiscoveryClient()
{
    do
    {
        if (state == ClientState::Running)
        {
            Stop();
        }
        JoinAsyncThread();
    } while (state == ClientState::Running); // a restart that was under way brings the client up again
}

void DiscoveryClient::CreateSocket()
{
    socket.Reset(new DiscoverySocketUdpClient(ports->GetLocalPort(), ports->GetRemotePort()));
}

void DiscoveryClient::CreateWorkers()
{
    taskProcessor.Reset(new DiscoveryClientTaskProcessor(socket, socketFactory, gateway));
    messageParser.Reset(new DiscoveryClientMessageParser(gateway));
    receiver.Reset(new DiscoveryReceiver(socket, messageParser));
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
    taskProcessor->Start();
    messageParser->Start();
    receiver->Start();
    ipChangeWatcher->Start();
    SendHelloMessage();
    asyncPending = false;
    state = ClientState::Running;
}

void DiscoveryClient::Stop()
{
    const Lock lock(lifecycleLock);
    LogCritical("Stopping Discovery Client service");
    if (state != ClientState::Running)
    {
        LogCritical(String::Format("Client's current state : {0} ! -> Stopping aborted.", ToDisplayText(state)));
        return;
    }
    state = ClientState::Stopping;
    ipChangeWatcher->Stop();
    receiver->Stop();
    messageParser->Stop();
    taskProcessor->Stop();
    UnhookEvents();
    socket.Reset(nullptr);
    taskProcessor->SendByeMessage();
    ipChangeWatcher.Reset(nullptr);
    receiver.Reset(nullptr);
    messageParser.Reset(nullptr);
    taskProcessor.Reset(nullptr);
    needsRebuild = true;
    state = ClientState::Stopped;
    LogCritical("Discovery Client service stopped");
}

void DiscoveryClient::LogCritical(const String& text)
{
    DiscoveryLogger::Instance().Write(channel, text, LogStreamLevel::Critical);
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
        DiscoveryLogger::Instance().Write(channel, text, failure);
        return false;
    }
}

void DiscoveryClient::EnqueueBroadcast(const Sp<ClientAction>& action)
{
    taskProcessor->EnqueueTask(*this, ClientActionArgs(action, IPAddress::Broadcast));
}

void DiscoveryClient::SendByeMessage()
{
    taskProcessor->SendByeMessage();
}

void DiscoveryClient::SetBroadcastProvider(const Sp<IBroadcastProvider>& provider)
{
    if (!(taskProcessor == null))
    {
        taskProcessor->SetBroadcastProvider(provider);
    }
}

void DiscoveryClient::AsyncRestart(const Object&, const EventArgs&)
{
    RunAsync("Asynchronous restart triggered", RestartBody);
}

void DiscoveryClient::AsyncStop(const Object&, const EventArgs&)
{
    RunAsync("Asynchronous stop triggered", StopBody);
}

void DiscoveryClient::RunAsync(const char* text, AsyncBody body)
{
    const Lock lock(asyncLock);
    if (asyncPending)
    {
        return;
    }
    asyncPending = true;
    LogCritical(text);
    if (!(asyncThread == null) && !asyncThread->ThreadState().Has(ThreadState::Unstarted))
    {
        asyncThread->Join();
        asyncThread.Reset(nullptr);
    }
    if (asyncThread == null)
    {
        asyncThread.Reset(new Thread(ParameterizedThreadStart(body)));
    }
    asyncThread->Start(*this);
}

void DiscoveryClient::JoinAsyncThread()
{
    Sp<Thread> thread;
    {
        const Lock lock(asyncLock);
        thread = asyncThread;
    }
    if (!(thread == null) && thread->IsAlive())
    {
        thread->Join();
    }
}

void DiscoveryClient::RestartBody(Object& client)
{
    auto& restarted = dynamic_cast<DiscoveryClient&>(client);
    try
    {
        restarted.Stop();
        restarted.Start();
    }
    catch (const Exception&) // meant: the client stays down without a further line, and the process stays up
    {
    }
}

void DiscoveryClient::StopBody(Object& client)
{
    dynamic_cast<DiscoveryClient&>(client).Stop();
}
} // namespace Zelkor::Discovery::Client
