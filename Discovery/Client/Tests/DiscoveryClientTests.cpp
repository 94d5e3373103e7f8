#include <Tests/Support/FakeGateway.h>
#include <Tests/Support/FakeSocket.h>

#include <Discovery/Client/DiscoveryClient.h>
#include <Tests/Support/LogRecorder.h>

#include <algorithm>
#include <atomic>
#include <memory>
#include <string>
#include <thread>

namespace Zelkor::Discovery::Client
{
using Tesmo::Sp;
using Tesmo::System::EventArgs;

namespace
{
/// Ports of their own for the tests; 65536 can't be bound.
class Ports : public DiscoveryPorts
{
public:
    int GetLocalPort() const override
    {
        return local;
    }
    int GetRemotePort() const override
    {
        return 12901;
    }
    std::atomic<int> local = 12900;
};

std::string Join(const Rows& rows, const std::string& part)
{
    std::string joined;
    for (const std::string& row : rows)
    {
        joined += row.find(part) == std::string::npos ? "" : row.substr(2) + "\n";
    }
    return joined;
}
} // namespace

class DiscoveryClientTests : public LogTest
{
protected:
    DiscoveryClientTests()
        : gateway(new FakeGateway),
          ports(new Ports),
          provider(new FakeProvider),
          client(std::make_unique<DiscoveryClient>(gateway, ports))
    {
        gateway->host.AddNIC(FakeGateway::MakeNIC("1", "127.0.0.1"));
        client->SetBroadcastProvider(provider);
    }

    /// Ends the announcements: after a restart they would go to the network.
    void Silence()
    {
        gateway->host.NICs.Reset(new FakeGateway::NICList);
        gateway->failing = "GetHost";
    }
    void Restart()
    {
        client->AsyncRestart(*client, EventArgs());
    }

    Sp<FakeGateway> gateway;
    Sp<Ports> ports;
    Sp<FakeProvider> provider;
    std::unique_ptr<DiscoveryClient> client;
};

TEST_F(DiscoveryClientTests, AStartOrAStopInTheWrongStateIsAborted)
{
    client->Stop();
    EXPECT_EQ("Discovery Client: Stopping Discovery Client service\n"
              "Discovery Client: Client's current state : Unstarted ! -> Stopping aborted.\n",
              Join(log.Take(), ""));
    EXPECT_EQ(ClientState::Unstarted, client->State());
    client->Start();
    EXPECT_EQ(ClientState::Running, client->State());
    log.Take();
    client->Start();
    EXPECT_EQ("Discovery Client: Starting Discovery Client service (1.0.23)\n"
              "Discovery Client: Client's current state : Running ! -> Starting aborted.\n",
              Join(log.Take(), " Discovery Client: "));
    client->Stop();
    EXPECT_EQ(ClientState::Stopped, client->State());
    client->Stop();
    EXPECT_EQ("C Discovery Client: Client's current state : Stopped ! -> Stopping aborted.", log.Take().back());
}

TEST_F(DiscoveryClientTests, ProducersStopBeforeConsumersAndTheByeIsLast)
{
    client->Start();
    ASSERT_TRUE(log.WaitFor("S ClientTaskProcessor: Message sent"));
    log.Take();
    gateway->changes.Release();
    ASSERT_TRUE(log.WaitFor("S ClientTaskProcessor: Message sent"));
    client->Stop();
    const Rows rows = log.Take();
    EXPECT_EQ("Discovery Client: Stopping Discovery Client service\n"
              "IPChangeWatcher: Stopping IPChangeWatcher\n"
              "Receiver: Stopping receiver\nReceiver: Stopping worker\n"
              "MessageParser: Stopping message parser\nMessageParser: Stopping worker\n"
              "ClientTaskProcessor: Stopping Task Processor\nClientTaskProcessor: Stopping worker\n",
              Join(rows, "Stopping"));
    EXPECT_EQ("C Discovery Client: Discovery Client service stopped", rows.back());
    EXPECT_EQ("S ClientTaskProcessor: Message sent", rows[rows.size() - 2]);
    EXPECT_EQ("", Join(rows, "restart"));
    EXPECT_EQ("Hello;SignatureBroadcast;Bye;", provider->types);
}

TEST_F(DiscoveryClientTests, SeveralRequestsMakeOneRestartWhichBuildsEverythingAnew)
{
    Silence();
    client->Start();
    ASSERT_TRUE(log.WaitFor("C IPChangeWatcher: ---Waiting for IP changes..."));
    log.Take();
    gateway->hold = true; // a restart reads the host before it ends
    std::thread second([this] { Restart(); });
    Restart();
    second.join();
    gateway->mayRead.Set();
    for (const char* row :
         {"C ClientTaskProcessor: ---Waiting for tasks...", "C MessageParser: ---Waiting for messages...",
          "C Receiver: ---Listening...", "C IPChangeWatcher: ---Waiting for IP changes..."})
    {
        EXPECT_TRUE(log.WaitFor(row)) << row;
    }
    client.reset(); // waits for the end of the restart
    const Rows rows = log.Take();
    EXPECT_EQ(1, std::count(rows.begin(), rows.end(), "C Discovery Client: Asynchronous restart triggered"));
    EXPECT_EQ(2, std::count(rows.begin(), rows.end(), "C Discovery Client: Discovery Client service stopped"));
    EXPECT_EQ("Discovery Client: SendHelloMessage aborted : exception caught during call to "
              "IDiscoveryClientDataGateway::GetHost !\n",
              Join(rows, "SendHelloMessage"));
}

TEST_F(DiscoveryClientTests, AFailedRestartLeavesTheClientDownWithoutARow)
{
    Silence();
    client->Start();
    ports->local = 65536;
    log.Take();
    Restart();
    ASSERT_TRUE(log.WaitFor("C Discovery Client: Starting Discovery Client service (1.0.23)"));
    Restart();
    client.reset();
    const Rows rows = log.Take();
    EXPECT_EQ(1, std::count(rows.begin(), rows.end(), "C Discovery Client: Asynchronous restart triggered"));
    EXPECT_EQ("C Discovery Client: Starting Discovery Client service (1.0.23)", rows.back());
}

TEST_F(DiscoveryClientTests, AnAsynchronousStopIsForGood)
{
    Silence();
    client->Start();
    client->AsyncStop(*client, EventArgs());
    ASSERT_TRUE(log.WaitFor("C Discovery Client: Discovery Client service stopped"));
    log.Take();
    Restart();
    EXPECT_TRUE(log.Take().empty());
    client->SetBroadcastProvider(provider); // there is no processor to take it
}
} // namespace Zelkor::Discovery::Client
