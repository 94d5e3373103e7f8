#include "FakeSocket.h"

#include <Core/System/FormatException.h>
#include <Core/System/Threading/EventWaitHandle.h>
#include <Core/System/Threading/ThreadStateException.h>
#include <Discovery/Client/DiscoveryMessageParser.h>
#include <Discovery/Protocol/Tests/LogRecorder.h>

#include <memory>
#include <stdexcept>
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

/// Waits in each message until the test lets it go on.
class Parser : public DiscoveryMessageParser
{
public:
    ~Parser() override
    {
        EndThread();
    }
    void EnqueueText(const char* text)
    {
        Enqueue(Sp<Datagram>(
            new Datagram{Sp<String>(new String(text)), Sp<IPEndPoint>(new IPEndPoint(IPAddress::Any, 0))}));
    }

    Semaphore entered{0, 1000};
    EventWaitHandle goOn{false, EventResetMode::ManualReset};

protected:
    void ProcessMessage(const String& text, const IPAddress&) override
    {
        entered.Release();
        goOn.WaitOne();
        if (text == "format")
        {
            throw FormatException(ThrowSite);
        }
        if (text == "other")
        {
            throw Exception(ThrowSite);
        }
        if (text == "standard")
        {
            throw std::runtime_error("no Exception of the library");
        }
    }
};
} // namespace

class DiscoveryWorkerTests : public LogTest
{
};
class DiscoveryMessageParserTests : public LogTest
{
};

TEST_F(DiscoveryWorkerTests, StopClosesTheSocketAndJoins)
{
    const Sp<FakeSocket> socket(new FakeSocket);
    Worker worker(socket);
    EXPECT_THROW(worker.Stop(), ThreadStateException); // not started
    worker.Start();
    EXPECT_THROW(worker.Start(), ThreadStateException);
    log.Take();
    worker.Stop();
    EXPECT_TRUE(socket->IsShutDown() && socket->IsClosed());
    EXPECT_EQ((Rows{"C Worker: Stopping worker", "C Worker: Worker stopped"}), log.Take());
}

TEST_F(DiscoveryWorkerTests, OfTheFailuresOfStopOnlyAClosedSocketIsTaken)
{
    const Sp<FakeSocket> socket(new FakeSocket);
    Worker worker(socket);
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
    const Sp<FakeSocket> socket(new FakeSocket);
    Worker worker(socket);
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
    EXPECT_THROW(Worker(Sp<IDiscoverySocket>()).RaiseRestartRequested(), std::exception);
}

TEST_F(DiscoveryMessageParserTests, After512OutstandingDatagramsItRefusesForEver)
{
    Parser parser;
    for (int count = 0; count < 512; ++count)
    {
        parser.EnqueueText("text");
    }
    EXPECT_TRUE(log.Take().empty());
    const Rows refusal = {"C MessageParser: Semaphore is full (512) !!! Ignoring this datagram..."};
    parser.EnqueueText("one too many");
    EXPECT_EQ(refusal, log.Take());

    parser.goOn.Set();
    parser.Start();
    for (int count = 0; count < 512; ++count)
    {
        ASSERT_TRUE(parser.entered.WaitOne(10000));
    }
    log.Take();
    parser.EnqueueText("after the queue has drained");
    EXPECT_EQ(refusal, log.Take());
    parser.Stop();
    EXPECT_FALSE(parser.entered.WaitOne(0));
}

TEST_F(DiscoveryMessageParserTests, WhateverAMessageThrowsTheThreadGoesOn)
{
    Parser parser;
    parser.goOn.Set();
    for (const char* text : {"format", "other", "standard", "good"})
    {
        parser.EnqueueText(text);
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
    Parser parser;
    parser.EnqueueText("first");
    parser.EnqueueText("second");
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

TEST_F(DiscoveryMessageParserTests, AParserThatWasNotStoppedEndsItsThreadItself)
{
    auto parser = std::make_unique<Parser>();
    parser->Start();
    parser.reset();
    EXPECT_EQ("C MessageParser: ---Message parser stopped---", log.Take().back());
}
} // namespace Zelkor::Discovery
