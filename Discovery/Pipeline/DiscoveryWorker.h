#pragma once

#include <Core/System/EventHandler.h>
#include <Core/System/Object.h>
#include <Core/System/Sp.h>
#include <Core/System/Threading/Thread.h>
#include <Discovery/Log/DiscoveryChannel.h>
#include <Discovery/Transport/IDiscoverySocket.h>

#include <atomic>

namespace Zelkor::Discovery
{
/// Thread base of the client's stages: one thread, and for the stages that touch the network the shared socket. A worker
/// is started once, stopped once and then dropped. It is made as a CompleteWorker of its class, and only so.
class DiscoveryWorker : public Tesmo::System::Object
{
public:
    /// Holds from the next Start on; Normal at first.
    void SetPriority(const Tesmo::System::Threading::ThreadPriority& value);

    /// @throws ThreadStateException  started before
    void Start();

    /// Shuts down and closes the socket, which wakes a thread that blocks in it, and joins the thread.
    /// @throws SocketException       the socket can't be shut down; the thread is not joined then
    /// @throws ThreadStateException  not started
    virtual void Stop();

    /// Raise the event on the calling thread, unless the socket was shut down and closed: that was done on purpose.
    /// @throws std::exception  the worker has no socket
    void RaiseRestartRequested();
    void RaiseStopRequested();

    /// The socket failed and nobody asked for that. Handlers must neither block nor join this worker's thread.
    Tesmo::System::EventHandler RestartRequested;
    /// Raised by no failure of this program.
    Tesmo::System::EventHandler StopRequested;

protected:
    /// What the thread runs; it is given the worker.
    using ThreadRoutine = void (*)(Tesmo::System::Object& worker);

    /// @param sharedSocket  may be empty
    DiscoveryWorker(ThreadRoutine threadMain, const Tesmo::Sp<IDiscoverySocket>& sharedSocket);
    DiscoveryWorker(ThreadRoutine threadMain, const Tesmo::Sp<IDiscoverySocket>& sharedSocket,
                    const Tesmo::System::String& channelName);

    /// Tells the thread to end, before its socket is closed: sets stopRequested. A stage that waits elsewhere adds what
    /// wakes it. Any thread.
    virtual void RequestEnd();

    /// Ends a thread that still runs, whatever fails, and logs nothing.
    void EndThread() noexcept;

    Tesmo::Sp<IDiscoverySocket> socket;
    DiscoveryChannel channel;
    std::atomic<bool> stopRequested = false;

private:
    /// CompleteWorker alone has it, so that no other class can be made and none forgets the end of its thread.
    virtual void BeComplete() const = 0;

    void CloseSocket();
    void Raise(const Tesmo::System::EventHandler& event);
    bool IsClosedOnPurpose() const;

    Tesmo::Sp<Tesmo::System::Threading::Thread> thread;
    Tesmo::System::Threading::ThreadPriority priority = Tesmo::System::Threading::ThreadPriority::Normal;
};
} // namespace Zelkor::Discovery
