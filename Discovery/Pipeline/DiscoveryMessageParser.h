#pragma once

#include <Discovery/Pipeline/Datagram.h>
#include <Discovery/Pipeline/DiscoveryWorker.h>
#include <Discovery/Pipeline/StageQueue.h>

namespace Zelkor::Discovery
{
/// The stage between the receiver and the meaning of messages: takes datagrams from a bounded queue and hands each to
/// ProcessMessage on its own thread. Bad input never ends that thread.
class DiscoveryMessageParser : public DiscoveryWorker
{
public:
    /// The name is that of the log channel and of the thread, "MessageParser" where none is given.
    DiscoveryMessageParser();
    explicit DiscoveryMessageParser(const Tesmo::System::String& channelName);

    /// Queues a datagram, or drops it with a log line. Once 512 were outstanding at a time, this object drops every
    /// later one. Any thread.
    void Enqueue(const Tesmo::Sp<Datagram>& datagram);

    /// Ends the thread after the datagram that it works on; the others stay unprocessed.
    /// @throws Exception  the semaphore failed
    void Stop() override;

protected:
    void RequestEnd() override;

    /// Called on the parser's thread for each datagram. What it throws is logged, and the next datagram comes.
    virtual void ProcessMessage(const Tesmo::System::String& text, const Tesmo::System::Net::IPAddress& sender) = 0;

private:
    static void ThreadMain(Tesmo::System::Object& worker);
    void Run();
    void Process(const Datagram& datagram);

    StageQueue<Datagram> queue;
};
} // namespace Zelkor::Discovery
