#include "DiscoveryTaskProcessor.h"

#include "Required.h"
#include "StageCapacity.h"

#include <Core/System/Threading/Lock.h>
#include <Core/System/Threading/SemaphoreFullException.h>
#include <Discovery/Protocol/DiscoveryLogger.h>

namespace Zelkor::Discovery
{
using Tesmo::Sp;
using Tesmo::System::Exception;
using Tesmo::System::Object;
using Tesmo::System::String;
using Tesmo::System::LogStreams::LogStreamLevel;
using Tesmo::System::Threading::Lock;
using Tesmo::System::Threading::SemaphoreFullException;
using Tesmo::System::Threading::ThreadPriority;

DiscoveryTaskProcessor::DiscoveryTaskProcessor(const Sp<IDiscoverySocket>& givenSocket)
    : DiscoveryTaskProcessor(givenSocket, "TaskProcessor")
{
}

DiscoveryTaskProcessor::DiscoveryTaskProcessor(const Sp<IDiscoverySocket>& givenSocket, const String& channelName)
    : DiscoveryWorker(ThreadMain, givenSocket, channelName),
      semaphore(0, StageCapacity)
{
    SetPriority(ThreadPriority::Normal);
}

void DiscoveryTaskProcessor::Stop()
{
    DiscoveryLogger& log = DiscoveryLogger::Instance();
    log.Write(channel, "Stopping Task Processor", LogStreamLevel::Critical);
    stopRequested = true;
    try
    {
        semaphore.Release();
    }
    catch (const SemaphoreFullException&) // then the thread has counts enough to wake up
    {
    }
    catch (const Exception& failure)
    {
        log.Write(channel, "Semaphore error", failure);
        throw Exception(failure);
    }
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

bool DiscoveryTaskProcessor::HasRoom()
{
    const bool hasRoom = lastQueueCount + 1 <= StageCapacity - 1;
    if (!hasRoom)
    {
        LogRefusal();
    }
    return hasRoom;
}

void DiscoveryTaskProcessor::CountTask()
{
    try
    {
        lastQueueCount = semaphore.Release();
    }
    catch (const SemaphoreFullException&) // several producers at once, or the count of a Stop, took the last place
    {
        lastQueueCount = StageCapacity - 1;
        LogRefusal();
    }
}

void DiscoveryTaskProcessor::LogRefusal()
{
    DiscoveryLogger::Instance().Write(
        channel, String::Format("Semaphore is full ({0}) !!! Ignoring this task...", lastQueueCount + 1),
        LogStreamLevel::Critical);
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
        semaphore.WaitOne();
        ProcessTask();
    } while (!stopRequested);
}
} // namespace Zelkor::Discovery
