#include "DiscoveryTaskProcessor.h"

#include <Core/System/Threading/Lock.h>
#include <Discovery/Pipeline/Required.h>

namespace Zelkor::Discovery
{
using Tesmo::Sp, Tesmo::System::String, Tesmo::System::Threading::Lock, Tesmo::System::Threading::ThreadPriority;

DiscoveryTaskProcessor::DiscoveryTaskProcessor(const Sp<IDiscoverySocket>& sharedSocket)
    : DiscoveryTaskProcessor(sharedSocket, "TaskProcessor")
{
}

DiscoveryTaskProcessor::DiscoveryTaskProcessor(const Sp<IDiscoverySocket>& sharedSocket, const String& channelName)
    : DiscoveryWorker(ThreadMain, sharedSocket, channelName),
      tasks(channel, "task")
{
    SetPriority(ThreadPriority::Normal);
}

void DiscoveryTaskProcessor::RequestEnd()
{
    DiscoveryWorker::RequestEnd();
    tasks.WakeUp();
}

void DiscoveryTaskProcessor::Stop()
{
    channel.Critical("Stopping Task Processor");
    RequestEnd();
    DiscoveryWorker::Stop();
    stopRequested = false;
    channel.Critical("---Task Processor stopped---");
}

void DiscoveryTaskProcessor::SetBroadcastProvider(const Sp<IBroadcastProvider>& provider)
{
    const Lock lock(providerLock);
    broadcastProvider = Required(provider);
}

Sp<IBroadcastProvider> DiscoveryTaskProcessor::BroadcastProvider() const
{
    const Lock lock(providerLock);
    return broadcastProvider;
}

void DiscoveryTaskProcessor::ThreadMain(Object& worker)
{
    dynamic_cast<DiscoveryTaskProcessor&>(worker).Run();
}

void DiscoveryTaskProcessor::Run()
{
    channel.Critical("---Waiting for tasks...");
    do
    {
        tasks.Wait();
        ProcessTask();
    } while (!stopRequested);
}
} // namespace Zelkor::Discovery
