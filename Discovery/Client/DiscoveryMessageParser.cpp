#include "DiscoveryMessageParser.h"

#include "StageCapacity.h"

#include <Core/System/FormatException.h>
#include <Core/System/Threading/Lock.h>
#include <Core/System/Threading/SemaphoreFullException.h>
#include <Discovery/Protocol/DiscoveryLogger.h>

namespace Zelkor::Discovery
{
using Tesmo::Sp;
using Tesmo::System::Exception;
using Tesmo::System::FormatException;
using Tesmo::System::Object;
using Tesmo::System::String;
using Tesmo::System::LogStreams::LogStreamLevel;
using Tesmo::System::Threading::Lock;
using Tesmo::System::Threading::SemaphoreFullException;
using Tesmo::System::Threading::ThreadPriority;

DiscoveryMessageParser::DiscoveryMessageParser() : DiscoveryMessageParser("MessageParser") {}

DiscoveryMessageParser::DiscoveryMessageParser(const String& channelName)
    : DiscoveryWorker(ThreadMain, Sp<IDiscoverySocket>(), channelName),
      semaphore(0, StageCapacity)
{
    SetPriority(ThreadPriority::Normal);
}

void DiscoveryMessageParser::Enqueue(Sp<Datagram> datagram)
{
    {
        const Lock lock(queue.SyncRoot());
        if (lastQueueCount + 1 > StageCapacity - 1)
        {
            LogRefusal();
            return;
        }
        queue.Enqueue(datagram);
    }
    try
    {
        lastQueueCount = semaphore.Release();
    }
    catch (const SemaphoreFullException&) // the count of a Stop took the last place
    {
        lastQueueCount = StageCapacity - 1;
        LogRefusal();
    }
}

void DiscoveryMessageParser::LogRefusal()
{
    DiscoveryLogger::Instance().Write(
        channel, String::Format("Semaphore is full ({0}) !!! Ignoring this datagram...", lastQueueCount + 1),
        LogStreamLevel::Critical);
}

void DiscoveryMessageParser::Stop()
{
    DiscoveryLogger& log = DiscoveryLogger::Instance();
    log.Write(channel, "Stopping message parser", LogStreamLevel::Critical);
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
    log.Write(channel, "---Message parser stopped---", LogStreamLevel::Critical);
}

void DiscoveryMessageParser::ThreadMain(Object& worker)
{
    dynamic_cast<DiscoveryMessageParser&>(worker).Run();
}

void DiscoveryMessageParser::Run()
{
    DiscoveryLogger::Instance().Write(channel, "---Waiting for messages...", LogStreamLevel::Critical);
    do
    {
        semaphore.WaitOne();
        Sp<Datagram> datagram;
        if (!TryDequeue(datagram))
        {
            return; // a count without a datagram is the signal of Stop
        }
        Process(*datagram);
    } while (!stopRequested);
}

bool DiscoveryMessageParser::TryDequeue(Sp<Datagram>& datagram)
{
    const Lock lock(queue.SyncRoot());
    if (queue.Count() == 0)
    {
        return false;
    }
    datagram = queue.Dequeue();
    return true;
}

void DiscoveryMessageParser::Process(const Datagram& datagram)
{
    DiscoveryLogger& log = DiscoveryLogger::Instance();
    try
    {
        ProcessMessage(*datagram.text, datagram.sender->Address());
    }
    catch (const FormatException&)
    {
        log.Write(channel, "Invalid format : message dropped", LogStreamLevel::Critical);
    }
    catch (const Exception& failure)
    {
        log.Write(channel, "Error while parsing/processing message", failure);
    }
    catch (const std::exception& failure) // an empty Sp or no memory: a datagram must not end the thread
    {
        log.Write(channel, "Error while parsing/processing message", Exception(failure.what(), ThrowSite));
    }
}
} // namespace Zelkor::Discovery
