#include "DiscoveryMessageParser.h"

#include <Core/System/FormatException.h>
#include <Discovery/Protocol/DiscoveryLogger.h>

namespace Zelkor::Discovery
{
using Tesmo::Sp;
using Tesmo::System::Exception;
using Tesmo::System::FormatException;
using Tesmo::System::Object;
using Tesmo::System::String;
using Tesmo::System::LogStreams::LogStreamLevel;
using Tesmo::System::Threading::ThreadPriority;

DiscoveryMessageParser::DiscoveryMessageParser() : DiscoveryMessageParser("MessageParser") {}

DiscoveryMessageParser::DiscoveryMessageParser(const String& channelName)
    : DiscoveryWorker(ThreadMain, Sp<IDiscoverySocket>(), channelName),
      queue(channel, "datagram")
{
    SetPriority(ThreadPriority::Normal);
}

void DiscoveryMessageParser::Enqueue(const Sp<Datagram>& datagram)
{
    queue.Enqueue(datagram);
}

void DiscoveryMessageParser::RequestEnd()
{
    DiscoveryWorker::RequestEnd();
    queue.WakeUp();
}

void DiscoveryMessageParser::Stop()
{
    DiscoveryLogger& log = DiscoveryLogger::Instance();
    log.Write(channel, "Stopping message parser", LogStreamLevel::Critical);
    RequestEnd();
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
        queue.Wait();
        Sp<Datagram> datagram;
        if (!queue.TryDequeue(datagram))
        {
            return; // a count without a datagram is the signal of Stop
        }
        Process(*datagram);
    } while (!stopRequested);
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
