#include "FakeGateway.h"
#include "FakeSocket.h"
#include "LogCapture.h"

#include <Discovery/Client/ChangeYourHostNameAction.h>
#include <Discovery/Client/ChangeYourIPConfigAction.h>
#include <Discovery/Client/DiscoveryClientTaskProcessor.h>
#include <Discovery/Client/HelloAction.h>

#include <typeinfo>

namespace Zelkor::Discovery::Client
{
using Tesmo::Sp;
using Tesmo::Up;
using Tesmo::System::EventArgs;
using Tesmo::System::EventHandler;
using Tesmo::System::Object;
using Tesmo::System::Net::IPAddress;

namespace
{
class Processor : public DiscoveryClientTaskProcessor
{
public:
    Processor(const Sp<FakeSocket>& shared, const Sp<FakeSocketFactory>& factory, const Sp<FakeGateway>& host)
        : DiscoveryClientTaskProcessor(shared, factory, host)
    {
        RestartRequested += EventHandler(*this, &Processor::Count);
    }
    ~Processor() override
    {
        EndThread();
    }
    void Enqueue(ClientAction* action, const IPAddress& address = IPAddress::Broadcast)
    {
        EnqueueTask(*this, ClientActionArgs(Sp<ClientAction>(action), address));
    }
    void EnqueueSignature(const IPAddress& address = IPAddress::Broadcast)
    {
        Enqueue(new ClientAction(ClientActionType::BroadcastSignature), address);
    }
    void EnqueueConfig(const Sp<NICConfig>& config, const IPAddress& address)
    {
        Sp<NICList> configs(new NICList);
        configs->Add(config);
        Enqueue(new ChangeYourIPConfigAction(configs), address);
    }
    using DiscoveryClientTaskProcessor::ProcessTask;

    int restarts = 0;

private:
    void Count(const Object&, const EventArgs&)
    {
        restarts++;
    }
};

class Provider : public IBroadcastProvider
{
public:
    void Send(const Up<unsigned char[]>&, int) override
    {
        sent++;
        ThrowFailure(10051);
    }
    int sent = 0;
};

bool Contains(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}
} // namespace

class DiscoveryClientTaskProcessorTests : public LogTest
{
protected:
    DiscoveryClientTaskProcessorTests()
        : gateway(new FakeGateway),
          socket(new FakeSocket),
          factory(new FakeSocketFactory),
          processor(socket, factory, gateway)
    {
    }
    void AddNIC(const char* address)
    {
        gateway->host.AddNIC(FakeGateway::MakeNIC("00:00:00:00:00:01", address));
    }

    /// The log without its rows with the JSON text.
    Rows TakeLog()
    {
        Rows rows = log->Take();
        std::erase_if(rows, [](const std::string& row) { return Contains(row, "(JSON)"); });
        return rows;
    }

    Sp<FakeGateway> gateway;
    Sp<FakeSocket> socket;
    Sp<FakeSocketFactory> factory;
    Processor processor;
};

TEST_F(DiscoveryClientTaskProcessorTests, AHostWithOneInterfaceSendsOnTheSharedSocket)
{
    AddNIC("10.0.0.1");
    gateway->host.HostName = "\u00FC\u4E2D"; // code page 437 has the first alone
    processor.EnqueueSignature(IPAddress(10, 0, 0, 9));
    processor.ProcessTask();
    processor.EnqueueSignature();
    processor.ProcessTask();
    processor.Enqueue(new HelloAction(gateway->host));
    processor.ProcessTask();
    processor.ProcessTask(); // nothing is queued: the wake-up of a stop

    ASSERT_EQ(3u, socket->sent.size());
    EXPECT_EQ("10.0.0.9", socket->sent[0].address);
    EXPECT_TRUE(
        Contains(socket->sent[0].text, R"("SignatureBroadcast","DiscoveryVersion":"1.0.23","Broadcast":"False")"));
    EXPECT_TRUE(Contains(socket->sent[0].text, R"("SourceNIC":{)"));
    EXPECT_TRUE(Contains(socket->sent[0].text, "\"HostName\":\"\x81?\""));
    EXPECT_EQ('}', socket->sent[0].text.back());
    EXPECT_TRUE(Contains(socket->sent[1].text, R"("Broadcast":"True")"));
    EXPECT_TRUE(Contains(socket->sent[2].text, R"("Hello")"));
    EXPECT_TRUE(factory->sockets.empty());
    EXPECT_EQ((Rows{"S ClientTaskProcessor: Sending message of type SignatureBroadcast",
                    "S ClientTaskProcessor: Message sent",
                    "S ClientTaskProcessor: Sending message of type SignatureBroadcast",
                    "S ClientTaskProcessor: Message sent", "S ClientTaskProcessor: Sending message of type Hello",
                    "S ClientTaskProcessor: Message sent"}),
              TakeLog());
}

TEST_F(DiscoveryClientTaskProcessorTests, SeveralInterfacesSendOneDatagramEach)
{
    AddNIC("10.0.0.1");
    AddNIC("10.0.0.2");
    factory->refused = "10.0.0.1";
    processor.EnqueueSignature();
    processor.ProcessTask();

    EXPECT_TRUE(socket->sent.empty());
    ASSERT_EQ(1u, factory->sockets.size());
    const FakeSocket& carrier = *factory->sockets["10.0.0.2"];
    ASSERT_EQ(1u, carrier.sent.size());
    EXPECT_TRUE(Contains(carrier.sent[0].text.substr(carrier.sent[0].text.find("SourceNIC")), "10.0.0.2"));
    EXPECT_TRUE(carrier.IsClosed());
    EXPECT_EQ((Rows{"S ClientTaskProcessor: Sending message of type SignatureBroadcast",
                    "E ClientTaskProcessor: Exception caught while creating socket on address 10.0.0.1 ! (The Socket "
                    "operation failed.)",
                    "S ClientTaskProcessor: Message sent"}),
              TakeLog());
}

TEST_F(DiscoveryClientTaskProcessorTests, WithoutAnyInterfaceTheSharedSocketSendsWithoutASource)
{
    processor.EnqueueSignature();
    processor.ProcessTask();
    ASSERT_EQ(1u, socket->sent.size());
    EXPECT_FALSE(Contains(socket->sent[0].text, "SourceNIC"));
}

TEST_F(DiscoveryClientTaskProcessorTests, TheByeUsesSocketsOfItsOwn)
{
    AddNIC("10.0.0.1");
    processor.SendByeMessage();
    ASSERT_EQ(1u, factory->sockets.size());
    EXPECT_EQ(1u, factory->sockets["0.0.0.0"]->sent.size());
    EXPECT_EQ("255.255.255.255", factory->sockets["0.0.0.0"]->sent[0].address);
    EXPECT_TRUE(Contains(factory->sockets["0.0.0.0"]->sent[0].text, R"("SourceNIC":{)"));
    EXPECT_FALSE(factory->sockets["0.0.0.0"]->IsClosed());

    AddNIC("10.0.0.2");
    factory->sockets.clear();
    processor.SendByeMessage();
    EXPECT_EQ(2u, factory->sockets.size());
    EXPECT_EQ(1u, factory->sockets["10.0.0.2"]->sent.size());

    gateway->host.NICs->Clear();
    factory->sockets.clear();
    processor.SendByeMessage();
    EXPECT_FALSE(Contains(factory->sockets["0.0.0.0"]->sent[0].text, "SourceNIC"));

    factory->refused = "0.0.0.0";
    log->Take();
    processor.SendByeMessage();
    gateway->failing = "GetHost";
    processor.SendByeMessage();
    EXPECT_EQ((Rows{"S ClientTaskProcessor: Sending message of type Bye",
                    "E ClientTaskProcessor: Exception caught while creating socket on address 0.0.0.0 ! (The Socket "
                    "operation failed.)",
                    "S ClientTaskProcessor: Sending message of type Bye",
                    "E ClientTaskProcessor: SendByeMessage aborted : exception caught during call to "
                    "IDiscoveryClientDataGateway::GetHost !"}),
              TakeLog());
    EXPECT_TRUE(socket->sent.empty());
}

TEST_F(DiscoveryClientTaskProcessorTests, EachFailureOfASendHasItsRowAndMayAskForARestart)
{
    struct Row
    {
        int code;
        const char* text;
        int restarts;
    };
    const Row rows[] = {
        {10058, "Message not sent : socket shut down", 1},
        {10004, "Message not sent : socket interrupted", 1},
        {10038, "Socket error : Operation attempted on a non-socket object.", 1},
        {10049, "Message not sent : address not available.", 0},
        {10051, "Message not sent : network unreachable.", 0},
        {10054, "Socket error : remote peer returned a \"Port Unreachable\" ICMP packet.", 0},
        {10040, "Unexpected socket error  : The Socket operation failed. !", 1},
        {ClosedObject, "Message not sent : socket closed", 1},
    };
    AddNIC("10.0.0.1");
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.code);
        processor.restarts = 0;
        socket->sendFailure = row.code;
        processor.Enqueue(new HelloAction(gateway->host));
        processor.ProcessTask();
        EXPECT_EQ(row.restarts, processor.restarts);
        EXPECT_EQ((Rows{"S ClientTaskProcessor: Sending message of type Hello",
                        std::string("E ClientTaskProcessor: ") + row.text}),
                  TakeLog());
    }
    socket->Shutdown();
    socket->Close();
    processor.restarts = 0;
    processor.Enqueue(new HelloAction(gateway->host));
    processor.ProcessTask();
    EXPECT_EQ(0, processor.restarts); // closed on purpose
}

TEST_F(DiscoveryClientTaskProcessorTests, AProviderTakesOnlyWhatIsForEverybody)
{
    AddNIC("10.0.0.1");
    const Sp<Provider> provider(new Provider);
    processor.SetBroadcastProvider(provider);
    processor.EnqueueSignature(IPAddress(10, 0, 0, 9));
    processor.ProcessTask();
    EXPECT_EQ(0, provider->sent);
    EXPECT_EQ(1u, socket->sent.size());
    processor.EnqueueSignature();
    processor.ProcessTask();
    EXPECT_EQ(1, provider->sent);
    EXPECT_EQ(1u, socket->sent.size());
    EXPECT_EQ("E ClientTaskProcessor: Message not sent : network unreachable.", TakeLog().back());
    EXPECT_THROW(processor.SetBroadcastProvider(Sp<IBroadcastProvider>()), std::exception);
}

TEST_F(DiscoveryClientTaskProcessorTests, AddressesAndMasksAreValidated)
{
    struct Row
    {
        const char* address;
        const char* mask;
        bool isValid;
    };
    const Row rows[] = {
        {"10.0.0.1", "255.255.255.0", true},
        {"10.0.0.1", "255.0.255.0", false},
        {"10.0.0.1", "255.255.0.255", false},
        {"10.0.0.1", "0.0.0.0", true},
        {"10.0.0.1", "128.0.0.0", true},
        {"10.0.0.1", "127.255.255.255", true},
        {"10.0.0.1", "255.255.255.255", true},
        {"10.0.0.1", "0.0.0.1", false},
        {"10.0.0.1", "64.0.0.0", true},
        {"0.0.0.1", "255.0.0.0", false},
        {"127.0.0.1", "255.0.0.0", false},
        {"126.255.255.255", "255.0.0.0", true},
        {"255.255.255.255", "255.0.0.0", false},
        {"255.255.255.254", "255.0.0.0", true},
        {"1:2:3:4:5:6:7:8", "255.255.0.0", false},
        {"10.0.0.1", "1:2:3:4:5:6:7:8", false},
    };
    for (const Row& row : rows)
    {
        DiscoveryClientTaskProcessor::NICList configs;
        configs.Add(FakeGateway::MakeNIC("1", "10.0.0.1"));
        configs.Add(FakeGateway::MakeNIC("2", row.address, row.mask));
        Sp<NICConfig> offender;
        EXPECT_EQ(row.isValid, DiscoveryClientTaskProcessor::ValidateIPConfigs(configs, offender))
            << row.address << '/' << row.mask;
        EXPECT_TRUE(row.isValid || offender == configs[1]);
    }
    Sp<NICConfig> offender;
    EXPECT_TRUE(DiscoveryClientTaskProcessor::ValidateIPConfigs(DiscoveryClientTaskProcessor::NICList(), offender));
}

TEST_F(DiscoveryClientTaskProcessorTests, AChangeThatIsRefusedOrFailsIsAnsweredByASignatureToTheRequester)
{
    AddNIC("10.0.0.1");
    const IPAddress requester(10, 0, 0, 9);
    processor.EnqueueConfig(FakeGateway::MakeNIC("1", "127.0.0.1"), requester);
    processor.ProcessTask();
    EXPECT_EQ("", gateway->calls);
    EXPECT_EQ((Rows{"C ClientTaskProcessor: A given IP config is invalid ! => Not changing and resending current "
                    "signature.",
                    "C ClientTaskProcessor: Invalid IP config : 127.0.0.1/255.0.0.0/255.255.255.255"}),
              TakeLog());
    processor.ProcessTask();

    gateway->failing = "ChangeIPConfig";
    TakeLog();
    processor.EnqueueConfig(FakeGateway::MakeNIC("1", "10.0.0.2"), requester);
    processor.ProcessTask();
    EXPECT_EQ((Rows{"S ClientTaskProcessor: Changing IP Config",
                    "E ClientTaskProcessor: Exception caught during call to "
                    "IDiscoveryClientDataGateway::ChangeIPConfig !",
                    "C ClientTaskProcessor: IP Config change returned an exception -> sending signature."}),
              TakeLog());
    processor.ProcessTask();

    gateway->failing = "ChangeHostName";
    TakeLog();
    processor.Enqueue(new ChangeYourHostNameAction("X"), requester);
    processor.ProcessTask();
    EXPECT_EQ((Rows{"S ClientTaskProcessor: Changing HostName",
                    "E ClientTaskProcessor: Exception caught during call to "
                    "IDiscoveryClientDataGateway::ChangeHostName !",
                    "C ClientTaskProcessor: HostName change returned an exception -> sending signature."}),
              TakeLog());
    processor.ProcessTask();

    EXPECT_EQ("1 configs;name X;", gateway->calls);
    ASSERT_EQ(3u, socket->sent.size());
    for (const FakeSocket::Sent& sent : socket->sent)
    {
        EXPECT_EQ("10.0.0.9", sent.address);
    }
}

TEST_F(DiscoveryClientTaskProcessorTests, AChangeThatSucceedsSendsNothingButANameWithoutReboot)
{
    AddNIC("10.0.0.1");
    processor.EnqueueConfig(FakeGateway::MakeNIC("1", "10.0.0.2"), IPAddress::Broadcast);
    processor.Enqueue(new ChangeYourHostNameAction("X"));
    for (int pass = 0; pass < 4; ++pass)
    {
        processor.ProcessTask();
    }
    EXPECT_TRUE(socket->sent.empty());
    gateway->rebootRequired = false;
    processor.Enqueue(new ChangeYourHostNameAction("X"));
    processor.ProcessTask();
    processor.ProcessTask();
    EXPECT_EQ(1u, socket->sent.size());
}

TEST_F(DiscoveryClientTaskProcessorTests, After512OutstandingTasksItRefusesForEver)
{
    gateway->failing = "GetHost";
    for (int count = 0; count < 512; ++count)
    {
        processor.EnqueueSignature();
    }
    EXPECT_TRUE(TakeLog().empty());
    const Rows refusal = {"C ClientTaskProcessor: Semaphore is full (512) !!! Ignoring this task..."};
    processor.EnqueueSignature();
    EXPECT_EQ(refusal, TakeLog());
    for (int count = 0; count < 512; ++count)
    {
        processor.ProcessTask();
    }
    EXPECT_EQ("E ClientTaskProcessor: Sending of message aborted : exception caught during call to "
              "IDiscoveryClientDataGateway::GetHost !",
              TakeLog().back());
    processor.EnqueueSignature();
    EXPECT_EQ(refusal, TakeLog());
    EXPECT_EQ(512, gateway->hostReads);
    EXPECT_TRUE(socket->sent.empty());
}

TEST_F(DiscoveryClientTaskProcessorTests, TheThreadRunsTasksUntilItIsStopped)
{
    AddNIC("10.0.0.1");
    EXPECT_THROW(processor.EnqueueTask(processor, EventArgs()), std::bad_cast);
    processor.Enqueue(new HelloAction(gateway->host));
    processor.Start();
    ASSERT_TRUE(log->WaitFor("S ClientTaskProcessor: Message sent"));
    TakeLog();
    processor.Stop();
    EXPECT_TRUE(socket->IsClosed());
    EXPECT_EQ((Rows{"C ClientTaskProcessor: Stopping Task Processor", "C ClientTaskProcessor: Stopping worker",
                    "C ClientTaskProcessor: Worker stopped", "C ClientTaskProcessor: ---Task Processor stopped---"}),
              TakeLog());
}
} // namespace Zelkor::Discovery::Client
