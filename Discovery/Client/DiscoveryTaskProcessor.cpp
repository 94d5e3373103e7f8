#include "DiscoveryTaskProcessor.h"

#include "Required.h"

#include <Core/System/Threading/Lock.h>
#include <Discovery/Protocol/DiscoveryLogger.h>

namespace Zelkor::Discovery
{
using Tesmo::Sp;
using Tesmo::System::Object;
using Tesmo::System::String;
using Tesmo::System::LogStreams::LogStreamLevel;
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
    DiscoveryLogger& log = DiscoveryLogger::Instance();
    log.Write(channel, "Stopping Task Processor", LogStreamLevel::Critical);
    RequestEnd();
    DiscoveryWorker::Stop();
    stopRequested = false;
    log.Write(channel, "---Task Processor stopped---", LogStreamLevel::Critical);
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
    DiscoveryLogger::Instance().Write(channel, "---Waiting for tasks...", LogStreamLevel::Critical);
    do
    {
        tasks.Wait();
        ProcessTask();
    } while (!stopRequested);
}
} // namespace Zelkor::Discovery
