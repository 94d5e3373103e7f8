#include <Discovery/Pipeline/DiscoveryTaskProcessor.h>

#include <Core/System/Threading/Lock.h>
#include <Discovery/Pipeline/Required.h>

namespace Zelkor::Discovery
{
using Tesmo::Sp;
using Tesmo::System::Object;
using Tesmo::System::String;
using Tesmo::System::Threading::Lock;
using Tesmo::System::Threading::ThreadPriority;

DiscoveryTaskProcessor::DiscoveryTaskProcessor(const Sp<IDiscoverySocket>& givenSocket)
    : DiscoveryTaskProcessor(givenSocket, "TaskProcessor")
{
}

DiscoveryTaskProcessor::DiscoveryTaskProcessor(const Sp<IDiscoverySocket>& givenSocket, const String& channelName)
    : DiscoveryWorker(ThreadMain, givenSocket, channelName),
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
