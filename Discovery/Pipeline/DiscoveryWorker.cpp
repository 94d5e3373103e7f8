#include "DiscoveryWorker.h"

#include <Core/System/ObjectClosedException.h>
#include <Core/System/Threading/Lock.h>

namespace Zelkor::Discovery
{
using Tesmo::null, Tesmo::Sp, Tesmo::System::EventArgs, Tesmo::System::EventHandler,
    Tesmo::System::ObjectClosedException, Tesmo::System::String, Tesmo::System::Threading::Lock,
    Tesmo::System::Threading::ParameterizedThreadStart, Tesmo::System::Threading::Thread,
    Tesmo::System::Threading::ThreadPriority;

DiscoveryWorker::DiscoveryWorker(ThreadRoutine threadMain, const Sp<IDiscoverySocket>& sharedSocket)
    : DiscoveryWorker(threadMain, sharedSocket, "Worker")
{
}

DiscoveryWorker::DiscoveryWorker(ThreadRoutine threadMain, const Sp<IDiscoverySocket>& sharedSocket,
                                 const String& channelName)
    : socket(sharedSocket),
      channel(channelName),
      thread(new Thread(ParameterizedThreadStart(threadMain)))
{
    thread->Name(channelName);
}

void DiscoveryWorker::SetPriority(const ThreadPriority& value)
{
    priority = value;
}

void DiscoveryWorker::Start()
{
    thread->Start(*this);
    thread->Priority(priority);
}

void DiscoveryWorker::Stop()
{
    channel.Critical("Stopping worker");
    if (socket != null)
    {
        CloseSocket();
    }
    thread->Join();
    channel.Critical("Worker stopped");
}

void DiscoveryWorker::CloseSocket()
{
    // The shut-down alone can wake a stage. The lock keeps it from taking the moment before the close for a failure.
    // decision 130
    const Lock lock(*socket);
    try
    {
        socket->Shutdown();
        socket->Close();
    }
    catch (const ObjectClosedException& failure)
    {
        channel.Critical("Socket already closed", failure);
    }
}

void DiscoveryWorker::RequestEnd()
{
    stopRequested = true;
}

// decision 128
void DiscoveryWorker::EndThread() noexcept
{
    if (!thread->IsAlive())
    {
        return;
    }
    RequestEnd();
    if (socket != null)
    {
        const Lock lock(*socket);
        try
        {
            socket->Shutdown();
        }
        catch (const std::exception&) // the close alone wakes the thread as well
        {
        }
        socket->Close();
    }
    thread->Join();
}

void DiscoveryWorker::RaiseRestartRequested()
{
    Raise(RestartRequested);
}

void DiscoveryWorker::RaiseStopRequested()
{
    Raise(StopRequested);
}

void DiscoveryWorker::Raise(const EventHandler& event)
{
    if (!IsClosedOnPurpose())
    {
        event.Invoke(*this, EventArgs());
    }
}

bool DiscoveryWorker::IsClosedOnPurpose() const
{
    const Lock lock(*socket);
    return socket->IsShutDownFlag() && socket->IsClosed();
}
} // namespace Zelkor::Discovery
