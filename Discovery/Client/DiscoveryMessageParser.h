#pragma once

#include <Core/System/Collections/Generic/Queue.h>
#include <Core/System/Threading/Semaphore.h>
#include <Discovery/Client/Datagram.h>
#include <Discovery/Client/DiscoveryWorker.h>

#include <atomic>

namespace Zelkor::Discovery
{
/// The stage between the receiver and the meaning of messages: takes datagrams from a bounded queue and hands each to
/// ProcessMessage on its own thread. Bad input never ends that thread.
class DiscoveryMessageParser : public DiscoveryWorker
{
public:
    DiscoveryMessageParser();
    explicit DiscoveryMessageParser(const Tesmo::System::String& channelName);

    /// Queues a datagram, or drops it with a log line. Once 512 were outstanding at a time, this object drops every
    /// later one. For one thread at a time.
    void Enqueue(Tesmo::Sp<Datagram> datagram);

    /// Ends the thread after the datagram that it works on; the others stay unprocessed.
    /// @throws Exception  the semaphore failed
    void Stop() override;

protected:
    /// What is to be done with a message, on the parser's thread.
    virtual void ProcessMessage(const Tesmo::System::String& text, const Tesmo::System::Net::IPAddress& sender) = 0;

private:
    static void ThreadMain(Tesmo::System::Object& worker);
    void Run();
    bool TryDequeue(Tesmo::Sp<Datagram>& datagram);
    void Process(const Datagram& datagram);
    void LogRefusal();

    std::atomic<int> lastQueueCount = 0; ///< the count before the last accepted datagram; dequeuing does not lower it
    Tesmo::System::Threading::Semaphore semaphore;
    Tesmo::System::Collections::Generic::Queue<Tesmo::Sp<Datagram>> queue; ///< its SyncRoot is the lock of this stage
    std::atomic<bool> stopRequested = false;
};
} // namespace Zelkor::Discovery
