#include "DiscoveryReceiver.h"

#include <Core/System/ObjectClosedException.h>

namespace Zelkor::Discovery
{
using Tesmo::Sp, Tesmo::Up, Tesmo::System::Exception, Tesmo::System::ObjectClosedException, Tesmo::System::String,
    Tesmo::System::Net::IPAddress, Tesmo::System::Net::IPEndPoint, Tesmo::System::Net::Sockets::SocketError,
    Tesmo::System::Net::Sockets::SocketException;

std::atomic<int> DiscoveryReceiver::MessageSize = 2048;

DiscoveryReceiver::DiscoveryReceiver(const Sp<IDiscoverySocket>& sharedSocket, const Sp<DiscoveryMessageParser>& parser)
    : DiscoveryReceiver(sharedSocket, parser, "Receiver")
{
}

DiscoveryReceiver::DiscoveryReceiver(const Sp<IDiscoverySocket>& sharedSocket, const Sp<DiscoveryMessageParser>& parser,
                                     const String& channelName)
    : DiscoveryWorker(ThreadMain, sharedSocket, channelName),
      messageParser(parser)
{
}

void DiscoveryReceiver::Stop()
{
    channel.Critical("Stopping receiver");
    RequestEnd();
    DiscoveryWorker::Stop();
    channel.Critical("---Receiver stopped---");
}

void DiscoveryReceiver::ThreadMain(Object& worker)
{
    dynamic_cast<DiscoveryReceiver&>(worker).Run();
}

void DiscoveryReceiver::Run()
{
    IPEndPoint sender(IPAddress::Broadcast, 0);
    channel.Critical("---Listening...");
    while (ReceiveOne(sender) && !stopRequested)
    {
    }
}

/// False when the thread has to end.
bool DiscoveryReceiver::ReceiveOne(IPEndPoint& sender)
{
    const int size = MessageSize;
    const Up<unsigned char[]> buffer(new unsigned char[static_cast<std::size_t>(size)]());
    try
    {
        socket->Receive(buffer, size, sender); // alone here: any other failure is a defect, not the network's
    }
    catch (const ObjectClosedException& failure)
    {
        EndWith("The socket has been closed : ending worker.", failure);
        return false;
    }
    catch (const SocketException& failure)
    {
        return HandleFailure(failure);
    }
    const Sp<String> text(new String(String::FromLatin1(buffer.Get(), size)));
    if (stopRequested && text->IsEmpty()) // the text always has size characters; required all the same
    {
        return false;
    }
    channel.Debug("Message received");
    const Sp<Datagram> datagram(new Datagram{text, Sp<IPEndPoint>(new IPEndPoint(sender))});
    messageParser->Enqueue(datagram);
    return true;
}

/// Logs the failure, and asks for a restart where the socket can no longer be used.
/// @returns whether listening goes on
bool DiscoveryReceiver::HandleFailure(const SocketException& failure)
{
    switch (failure.SocketErrorCode().Value())
    {
    case SocketError::Success:
        return true;
    case SocketError::MessageSize:
        channel.Critical(String::Format("MessageSize is too low : {0}! Doubling it...", MessageSize.load()), failure);
        MessageSize = MessageSize * 2; // decision 132
        return true;
    case SocketError::ConnectionReset:
        channel.Critical("Socket error : remote peer returned a \"Port Unreachable\" ICMP packet.", failure);
        return true;
    case SocketError::Interrupted:
        EndWith("The socket has been closed : ending worker.", failure);
        return false;
    case SocketError::Shutdown:
        EndWith("The socket has been shut down : ending worker.", failure);
        return false;
    case SocketError::NotSocket:
        EndWith("Socket error : Operation attempted on a non-socket object.", failure);
        return false;
    default:
        EndWith(String::Format("Unexpected socket error  : {0} !", failure.Message()), failure);
        return false;
    }
}

void DiscoveryReceiver::EndWith(const String& text, const Exception& failure)
{
    channel.Critical(text, failure);
    RaiseRestartRequested();
}
} // namespace Zelkor::Discovery
