#include "DiscoveryMessageParser.h"

#include <Core/System/FormatException.h>

namespace Zelkor::Discovery
{
using Tesmo::Sp, Tesmo::System::Exception, Tesmo::System::FormatException, Tesmo::System::String,
    Tesmo::System::Threading::ThreadPriority;

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
    channel.Critical("Stopping message parser");
    RequestEnd();
    DiscoveryWorker::Stop();
    stopRequested = false;
    channel.Critical("---Message parser stopped---");
}

void DiscoveryMessageParser::ThreadMain(Object& worker)
{
    dynamic_cast<DiscoveryMessageParser&>(worker).Run();
}

void DiscoveryMessageParser::Run()
{
    channel.Critical("---Waiting for messages...");
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
    try
    {
        ProcessMessage(*datagram.text, datagram.sender->Address());
    }
    catch (const FormatException&)
    {
        channel.Critical("Invalid format : message dropped");
    }
    catch (const Exception& failure)
    {
        channel.Critical("Error while parsing/processing message", failure);
    }
    catch (const std::exception& failure) // an empty Sp or no memory: a datagram must not end the thread (decision 118)
    {
        channel.Critical("Error while parsing/processing message", Exception(failure.what(), ThrowSite));
    }
}
} // namespace Zelkor::Discovery
