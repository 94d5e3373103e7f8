#include <Tests/Support/FakeParser.h>
#include <Tests/Support/FakeSocket.h>

#include <Discovery/Pipeline/CompleteWorker.h>
#include <Discovery/Pipeline/DiscoveryReceiver.h>
#include <Tests/Support/LogRecorder.h>

namespace Zelkor::Discovery
{
using Threading::ThreadStateException;

namespace
{
class Worker : public DiscoveryWorker
{
public:
    explicit Worker(const Sp<IDiscoverySocket>& shared) : DiscoveryWorker([](Object&) {}, shared) {}
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
        const Sp<Net::IPEndPoint> sender(new Net::IPEndPoint(Net::IPAddress::Any, 0));
        parser.Enqueue(Sp<Datagram>(new Datagram{Sp<String>(new String(text)), sender}));
    }

    CompleteWorker<FakeParser> parser;
};

TEST_F(DiscoveryWorkerTests, AWorkerIsStartedOnceAndStopClosesItsSocketWhichMayBeClosedAlready)
{
    EXPECT_THROW(worker.Stop(), ThreadStateException); // not started
    worker.Start();
    EXPECT_THROW(worker.Start(), ThreadStateException);
    worker.Stop();
    EXPECT_TRUE(socket->IsShutDownFlag() && socket->IsClosed());
    socket->shutdownFailure = 10022;
    EXPECT_THROW(worker.Stop(), Net::Sockets::SocketException);
    socket->shutdownFailure = ClosedObject;
    log.Take();
    worker.Stop();
    EXPECT_EQ((Rows{"C Worker: Stopping worker", "E Worker: Socket already closed", "C Worker: Worker stopped"}),
              log.Take());
}

TEST_F(DiscoveryWorkerTests, OnlyASocketThatIsShutDownAndClosedKeepsARestartFromBeingAskedFor)
{
    worker.RestartRequested += EventHandler(*this, &LogTest::Count);
    worker.StopRequested += EventHandler(*this, &LogTest::Count);
    worker.RaiseRestartRequested();
    worker.RaiseStopRequested();
    EXPECT_EQ(2, raised.Release());
    socket->Shutdown();
    worker.RaiseRestartRequested();
    EXPECT_EQ(4, raised.Release());
    socket->Close();
    worker.RaiseRestartRequested();
    EXPECT_EQ(5, raised.Release());
}

TEST_F(DiscoveryMessageParserTests, WhateverAMessageThrowsTheThreadGoesOn)
{
    const std::function<void()> ends[] = {[] { throw FormatException(ThrowSite); }, [] { throw Exception(ThrowSite); },
                                          [] { throw std::runtime_error("no Exception of the library"); }, [] {}};
    parser.onMessage = [&, this] { ends[parser.texts.size() - 1](); };
    for (int count = 0; count < 4; ++count)
    {
        Enqueue("text");
    }
    parser.Start();
    ASSERT_TRUE(Await(parser.entered, 4));
    parser.Stop();
    EXPECT_EQ((Rows{"C MessageParser: ---Waiting for messages...", "C MessageParser: Invalid format : message dropped",
                    "E MessageParser: Error while parsing/processing message",
                    "E MessageParser: Error while parsing/processing message",
                    "C MessageParser: Stopping message parser", "C MessageParser: Stopping worker",
                    "C MessageParser: Worker stopped", "C MessageParser: ---Message parser stopped---"}),
              log.Take());
}

TEST_F(DiscoveryMessageParserTests, AStopWithAFullBacklogEndsAfterTheMessageUnderWay)
{
    parser.onMessage = [this] { log.WaitFor("C MessageParser: Stopping worker"); }; // the flag is set by then
    for (int count = 0; count < 513; ++count)
    {
        EXPECT_TRUE(log.Take().empty()) << count;
        Enqueue("text");
    }
    EXPECT_EQ(Rows{"C MessageParser: Semaphore is full (512) !!! Ignoring this datagram..."}, log.Take());
    parser.Start();
    ASSERT_TRUE(parser.entered.WaitOne(10000));
    parser.Stop();
    EXPECT_FALSE(parser.entered.WaitOne(0));
}

TEST_F(DiscoveryWorkerTests, AWorkerThatWasNotStoppedEndsItsThreadItself)
{
    for (const std::optional<int> failure : {std::optional<int>(), std::optional<int>(10038)})
    {
        const Sp<FakeSocket> shared(new FakeSocket);
        shared->shutdownFailure = failure;
        const Sp<FakeParser> consumer(new CompleteWorker<FakeParser>);
        consumer->Start();
        CompleteWorker<DiscoveryReceiver>(shared, consumer).Start();
        EXPECT_TRUE(shared->IsClosed());
        const std::string step = failure ? "closed" : "shut down";
        EXPECT_EQ(1, std::ranges::count(log.Take(), "E Receiver: The socket has been " + step + " : ending worker."));
    }
}

TEST_F(DiscoveryMessageParserTests, AFullQueueRefusesForEverAndHasNothingOfWhatItRefused)
{
    const DiscoveryChannel channel("Stage");
    StageQueue<Datagram> queue(channel, "record");
    const Sp<Datagram> record(new Datagram);
    for (int count = 0; count < 511; ++count)
    {
        queue.Enqueue(record);
    }
    queue.WakeUp(); // takes the last place
    queue.WakeUp();
    EXPECT_TRUE(log.Take().empty());
    for (const int expected : {511, 0})
    {
        queue.Enqueue(record);
        EXPECT_EQ(Rows{"C Stage: Semaphore is full (512) !!! Ignoring this record..."}, log.Take());
        int count = 0;
        for (Sp<Datagram> taken; queue.TryDequeue(taken); ++count)
        {
            queue.Wait();
        }
        EXPECT_EQ(expected, count);
    }
}
} // namespace Zelkor::Discovery
