#include <Tests/Support/FakeParser.h>
#include <Tests/Support/FakeSocket.h>

#include <Discovery/Pipeline/CompleteWorker.h>
#include <Discovery/Pipeline/DiscoveryReceiver.h>
#include <Tests/Support/LogRecorder.h>

namespace Zelkor::Discovery
{
class DiscoveryReceiverTests : public LogTest
{
protected:
    DiscoveryReceiverTests() : socket(new FakeSocket), parser(new CompleteWorker<FakeParser>), receiver(socket, parser)
    {
        DiscoveryReceiver::MessageSize = 2048;
        receiver.RestartRequested += EventHandler(*this, &LogTest::Count);
    }

    Sp<FakeSocket> socket;
    Sp<FakeParser> parser;
    CompleteWorker<DiscoveryReceiver> receiver;
};

TEST_F(DiscoveryReceiverTests, ACleanStopAsksForNoRestart)
{
    receiver.Start();
    ASSERT_TRUE(log.WaitFor("C Receiver: ---Listening..."));
    log.Take();
    socket->beforeClose = [this] // the thread wakes in the middle of the stop
    {
        EXPECT_TRUE(log.WaitFor("E Receiver: The socket has been shut down : ending worker."));
        EXPECT_FALSE(raised.WaitOne(20));
    };
    receiver.Stop();
    EXPECT_FALSE(raised.WaitOne(0));
    Rows rows = log.Take();
    EXPECT_EQ(1, std::erase(rows, "E Receiver: The socket has been shut down : ending worker."));
    EXPECT_EQ((Rows{"C Receiver: Stopping receiver", "C Receiver: Stopping worker", "C Receiver: Worker stopped",
                    "C Receiver: ---Receiver stopped---"}),
              rows);
}

TEST_F(DiscoveryReceiverTests, FailuresThatItSurvivesAreLoggedAndEachByteOfTheBufferBecomesACharacter)
{
    parser->Start();
    socket->Fail(10054);
    socket->Fail(0);
    socket->Fail(10040);
    socket->Deliver("{\x81}");
    socket->Deliver("");
    receiver.Start();
    ASSERT_TRUE(Await(parser->entered, 2));
    Rows rows = log.Take();
    receiver.Stop();
    parser->Stop();
    std::erase_if(rows, [](const std::string& row) { return !row.starts_with("E "); });
    EXPECT_EQ((Rows{"E Receiver: Socket error : remote peer returned a \"Port Unreachable\" ICMP packet.",
                    "E Receiver: MessageSize is too low : 2048! Doubling it..."}),
              rows);
    EXPECT_FALSE(raised.WaitOne(0));
    EXPECT_EQ(4096, DiscoveryReceiver::MessageSize); // a later receiver starts with it
    EXPECT_EQ("{\xC2\x81}" + std::string(4093, '\0'), parser->texts[0]);
    EXPECT_EQ(std::string(4096, '\0'), parser->texts[1]);
    EXPECT_EQ("10.0.0.9", parser->sender);
}

TEST_F(DiscoveryReceiverTests, FatalFailuresEndItAndAskForOneRestart)
{
    using Row = std::tuple<int, const char*>;
    const Row rows[] = {{ClosedObject, "The socket has been closed : ending worker."},
                        {10004, "The socket has been closed : ending worker."},
                        {10058, "The socket has been shut down : ending worker."},
                        {10038, "Socket error : Operation attempted on a non-socket object."},
                        {10060, "Unexpected socket error  : The Socket operation failed. !"}};
    for (const auto& [code, text] : rows)
    {
        SCOPED_TRACE(code);
        const Sp<FakeSocket> dying(new FakeSocket);
        CompleteWorker<DiscoveryReceiver> victim(dying, parser);
        victim.RestartRequested = receiver.RestartRequested;
        dying->Fail(code);
        dying->Deliver("nobody receives this");
        victim.Start();
        ASSERT_TRUE(raised.WaitOne(10000));
        EXPECT_EQ(std::string("E Receiver: ") + text, log.Take().back());
        victim.DiscoveryWorker::Stop(); // tells the thread nothing: one that goes on receives
        EXPECT_FALSE(raised.WaitOne(0));
        EXPECT_EQ(2u, log.Take().size()); // those of the stop alone
    }
}
} // namespace Zelkor::Discovery
