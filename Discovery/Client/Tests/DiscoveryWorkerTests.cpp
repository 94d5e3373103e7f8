#include <Tests/Support/FakeParser.h>
#include <Tests/Support/FakeSocket.h>

#include <Core/System/Threading/ThreadStateException.h>
#include <Discovery/Client/CompleteWorker.h>
#include <Discovery/Client/DiscoveryReceiver.h>
#include <Tests/Support/LogRecorder.h>

#include <thread>

namespace Zelkor::Discovery
{
using namespace Tesmo;
using namespace Tesmo::System;
using namespace Net;
using namespace Threading;
using Net::Sockets::SocketException;

namespace
{
class Worker : public DiscoveryWorker
{
public:
    explicit Worker(const Sp<IDiscoverySocket>& shared) : DiscoveryWorker([](Object&) {}, shared) {}

    void Count(const Object& sender, const EventArgs&)
    {
        raised += &sender == this ? 1 : 100;
    }
    int raised = 0;
};
} // namespace

class DiscoveryWorkerTests : public LogTest
{
protected:
    const Sp<FakeSocket> socket{new FakeSocket};
    CompleteWorker<Worker> worker{socket};
};

class DiscoveryMessageParserTests : public LogTest
{
protected:
    void Enqueue(const char* text)
    {
        parser.Enqueue(Sp<Datagram>(
            new Datagram{Sp<String>(new String(text)), Sp<IPEndPoint>(new IPEndPoint(IPAddress::Any, 0))}));
    }

    CompleteWorker<FakeParser> parser;
};

TEST_F(DiscoveryWorkerTests, AWorkerIsStartedOnceAndStopClosesItsSocket)
{
    EXPECT_THROW(worker.Stop(), ThreadStateException); // not started
    worker.Start();
    EXPECT_THROW(worker.Start(), ThreadStateException);
    worker.Stop();
    EXPECT_TRUE(socket->IsShutDownFlag() && socket->IsClosed());
}

TEST_F(DiscoveryWorkerTests, OfTheFailuresOfStopOnlyAClosedSocketIsTaken)
{
    worker.Start();
    socket->shutdownFailure = 10022;
    EXPECT_THROW(worker.Stop(), SocketException);
    socket->shutdownFailure = ClosedObject;
    log.Take();
    worker.Stop();
    EXPECT_EQ((Rows{"C Worker: Stopping worker", "E Worker: Socket already closed", "C Worker: Worker stopped"}),
              log.Take());
}

TEST_F(DiscoveryWorkerTests, OnlyASocketThatIsShutDownAndClosedKeepsARestartFromBeingAskedFor)
{
    worker.RestartRequested += EventHandler(worker, &Worker::Count);
    worker.StopRequested += EventHandler(worker, &Worker::Count);
    worker.RaiseRestartRequested();
    worker.RaiseStopRequested();
    EXPECT_EQ(2, worker.raised);
    socket->Shutdown();
    worker.RaiseRestartRequested();
    EXPECT_EQ(3, worker.raised);
    socket->Close();
    worker.RaiseRestartRequested();
    EXPECT_EQ(3, worker.raised);
    EXPECT_THROW(CompleteWorker<Worker>(Sp<IDiscoverySocket>()).RaiseRestartRequested(), std::exception);
}

TEST_F(DiscoveryMessageParserTests, After512OutstandingDatagramsItRefusesForEver)
{
    for (int count = 0; count < 512; ++count)
    {
        Enqueue("text");
    }
    EXPECT_TRUE(log.Take().empty());
    const Rows refusal = {"C MessageParser: Semaphore is full (512) !!! Ignoring this datagram..."};
    Enqueue("one too many");
    EXPECT_EQ(refusal, log.Take());

    parser.Start();
    for (int count = 0; count < 512; ++count)
    {
        ASSERT_TRUE(parser.entered.WaitOne(10000));
    }
    log.Take();
    Enqueue("after the queue has drained");
    EXPECT_EQ(refusal, log.Take());
    parser.Stop();
    EXPECT_FALSE(parser.entered.WaitOne(0));
}

TEST_F(DiscoveryMessageParserTests, WhateverAMessageThrowsTheThreadGoesOn)
{
    for (const char* text : {"format", "other", "standard", "good"})
    {
        Enqueue(text);
    }
    parser.Start();
    for (int count = 0; count < 4; ++count)
    {
        ASSERT_TRUE(parser.entered.WaitOne(10000));
    }
    parser.Stop();
    EXPECT_EQ((Rows{"C MessageParser: ---Waiting for messages...", "C MessageParser: Invalid format : message dropped",
                    "E MessageParser: Error while parsing/processing message",
                    "E MessageParser: Error while parsing/processing message",
                    "C MessageParser: Stopping message parser", "C MessageParser: Stopping worker",
                    "C MessageParser: Worker stopped", "C MessageParser: ---Message parser stopped---"}),
              log.Take());
}

TEST_F(DiscoveryMessageParserTests, AStopWithABacklogEndsAfterTheMessageUnderWay)
{
    parser.goOn.Reset();
    Enqueue("first");
    Enqueue("second");
    parser.Start();
    ASSERT_TRUE(parser.entered.WaitOne(10000));
    std::thread release(
        [&]
        {
            log.WaitFor("C MessageParser: Stopping worker"); // the flag is set by then
            parser.goOn.Set();
        });
    parser.Stop();
    release.join();
    EXPECT_FALSE(parser.entered.WaitOne(0));
}

TEST_F(DiscoveryWorkerTests, AWorkerThatWasNotStoppedEndsItsThreadItself)
{
    for (const int failure : {0, 10038})
    {
        SCOPED_TRACE(failure);
        const Sp<FakeSocket> shared(new FakeSocket);
        shared->shutdownFailure = failure;
        const Sp<FakeParser> consumer(new CompleteWorker<FakeParser>);
        consumer->Start();
        CompleteWorker<DiscoveryReceiver>(shared, consumer).Start();
        EXPECT_TRUE(shared->IsClosed());
        EXPECT_EQ(1, std::ranges::count(log.Take(), failure == 0
                                                        ? "E Receiver: The socket has been shut down : ending worker."
                                                        : "E Receiver: The socket has been closed : ending worker."));
    }
}

TEST(StageQueueTests, WhatIsToldAsIgnoredIsNotInTheQueue)
{
    LogRecorder log;
    const LogStreams::LogStreamChannel channel("Stage");
    StageQueue<Datagram> queue(channel, "record");
    for (int count = 0; count < 511; ++count)
    {
        queue.Enqueue(Sp<Datagram>(new Datagram));
    }
    queue.WakeUp(); // takes the last place
    queue.WakeUp();
    EXPECT_TRUE(log.Take().empty());
    for (int count = 0; count < 2; ++count)
    {
        queue.Enqueue(Sp<Datagram>(new Datagram));
        EXPECT_EQ(Rows{"C Stage: Semaphore is full (512) !!! Ignoring this record..."}, log.Take());
    }
    Sp<Datagram> taken;
    int count = 0;
    while (queue.TryDequeue(taken))
    {
        count++;
    }
    EXPECT_EQ(511, count);
}
} // namespace Zelkor::Discovery
