#include <Tests/Support/FakeGateway.h>
#include <Tests/Support/FakeSocket.h>

#include <Discovery/Client/DiscoveryClient.h>
#include <Tests/Support/LogRecorder.h>

namespace Zelkor::Discovery::Client
{
using Tesmo::System::Threading::Semaphore, Tesmo::System::Threading::Thread;

namespace
{
constexpr const char* Triggered = "C Discovery Client: Asynchronous restart triggered";

/// Ports of their own for the tests; 65536 can't be bound.
class Ports : public DiscoveryPorts
{
public:
    int GetLocalPort() const override
    {
        beforeBind();
        return local;
    }
    int GetRemotePort() const override
    {
        return 12901;
    }
    std::atomic<int> local = 12900;
    std::function<void()> beforeBind = [] {};
};

/// Restarts that the test spaces: each takes the next delay, the last of which stays.
class Spacing : public RestartSpacing
{
public:
    int Next(std::chrono::steady_clock::duration held) override
    {
        lastHeld = held;
        asked.Release();
        return ++count < waitsFrom ? 0 : longest;
    }
    std::atomic<int> waitsFrom = INT_MAX; ///< the first restart that waits for ever
    std::atomic<int> count = 0;
    int longest = INT_MAX; ///< milliseconds
    std::chrono::steady_clock::duration lastHeld{};
    Semaphore asked{0, INT_MAX};
};

Rows With(const std::string& part, Rows rows)
{
    std::erase_if(rows, [&](const std::string& row) { return row.find(part) == std::string::npos; });
    return rows;
}
} // namespace

class DiscoveryClientTests : public LogTest
{
protected:
    DiscoveryClientTests()
    {
        gateway->host.AddNIC(FakeGateway::MakeNIC("1", "127.0.0.1"));
        MakeClient();
        client->SetBroadcastProvider(provider);
    }

    ~DiscoveryClientTests() override
    {
        EndClient();
    }

    void MakeClient()
    {
        EndClient();
        client = new DiscoveryClient(gateway, ports, spacing);
    }
    void EndClient()
    {
        delete client;
        client = nullptr;
    }
    /// Ends the announcements: after a restart they would go to the network.
    void Silence()
    {
        gateway->host.NICs.Reset(new NICList);
        gateway->failing = "GetHost";
    }
    void Restart()
    {
        client->AsyncRestart(*client, EventArgs());
    }

    Sp<FakeGateway> gateway{new FakeGateway};
    Sp<Ports> ports{new Ports};
    Sp<Spacing> spacing{new Spacing};
    Sp<FakeProvider> provider{new FakeProvider};
    DiscoveryClient* client = nullptr; // still set during its destruction, in which the fakes look at it
};

TEST_F(DiscoveryClientTests, AStartOrAStopInTheWrongStateIsAbortedAndAStoppedClientSendsNothing)
{
    client->Stop();
    EXPECT_EQ((Rows{"C Discovery Client: Stopping Discovery Client service",
                    "C Discovery Client: Client's current state : Unstarted ! -> Stopping aborted."}),
              log.Take());
    EXPECT_EQ(ClientState::Unstarted, client->State());
    client->Start();
    EXPECT_EQ(ClientState::Running, client->State());
    log.Take();
    client->Start();
    EXPECT_EQ((Rows{"C Discovery Client: Starting Discovery Client service (1.0.23)",
                    "C Discovery Client: Client's current state : Running ! -> Starting aborted."}),
              With(" Discovery Client: ", log.Take()));
    client->Stop();
    EXPECT_EQ(ClientState::Stopped, client->State());
    client->Stop();
    EXPECT_EQ("C Discovery Client: Client's current state : Stopped ! -> Stopping aborted.", log.Take().back());
    provider->types = "";
    client->SendHelloMessage();
    client->SendSignature(*client, EventArgs());
    client->SendByeMessage();
    client->SetBroadcastProvider(provider);
    EXPECT_TRUE(log.Take().empty());
    EXPECT_EQ("", provider->types);
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
    EXPECT_EQ(
        (Rows{"C IPChangeWatcher: ---IPChangeWatcher stopped---", "C Receiver: ---Receiver stopped---",
              "C MessageParser: ---Message parser stopped---", "C ClientTaskProcessor: ---Task Processor stopped---"}),
        With("stopped---", rows));
    EXPECT_EQ(1, std::ranges::count(rows, "C ClientTaskProcessor: Worker stopped")); // its thread was waited for
    EXPECT_EQ("C Discovery Client: Discovery Client service stopped", rows.back());
    EXPECT_EQ("S ClientTaskProcessor: Message sent", rows[rows.size() - 2]);
    EXPECT_TRUE(With("restart", rows).empty());
    EXPECT_EQ("Hello;SignatureBroadcast;Bye;", provider->types);
}

TEST_F(DiscoveryClientTests, EachRequestIsAnsweredByOneRestartWheneverItComes)
{
    Silence();
    gateway->changeResult = false; // a cancel that comes before the wait ends the next one
    struct Row
    {
        std::string moment; // when two more requests come
        int starts;         // in all
    };
    for (const Row& row : {Row{"Starting 1", 2}, Row{"cancel 1", 2}, Row{"Stopping 1", 2}, Row{"bind 2", 2},
                           Row{"Starting 2", 3}, Row{"never", 2}})
    {
        SCOPED_TRACE(row.moment);
        int number = 0; // of the start, which one thread at a time makes
        const auto reach = [&, this](const std::string& name)
        {
            if (name + " " + std::to_string(number) == row.moment)
            {
                std::thread other([this] { Restart(); }); // must not wait for the start or the stop
                Restart();
                other.join();
            }
        };
        gateway->beforeHost = [&, this]
        {
            if (client->State() == ClientState::Starting)
            {
                number++;
                raised.Release();
            }
            reach(ToDisplayText(client->State()).Utf8()); // Stopping: the bye reads the host
        };
        gateway->onCancel = [&] { reach("cancel"); };
        ports->beforeBind = [&] { (number += 1, reach("bind"), number -= 1); };
        MakeClient();
        log.Take();

        client->Start();
        row.moment == "Starting 1" ? void() : Restart();
        ASSERT_TRUE(Await(raised, row.starts));
        client->Stop(); // waits for the start under way
        EXPECT_EQ(ClientState::Stopped, client->State());
        EndClient();
        EXPECT_EQ(row.starts - 1, std::ranges::count(log.Take(), Triggered));
    }
}

TEST_F(DiscoveryClientTests, ARequestDuringTheStopOfAnotherThreadBringsTheClientUpAgain)
{
    Silence();
    client->Start();
    bool isFirst = true;
    gateway->onCancel = [&, this] { std::exchange(isFirst, false) ? Restart() : void(); };
    gateway->beforeHost = [this] { client->State() == ClientState::Starting ? raised.Release() : 0; };
    ports->beforeBind = [] { EXPECT_EQ("Restart", Thread::CurrentThread()->Name()); };
    client->Stop();
    ASSERT_TRUE(Await(raised, 1));
    EndClient(); // waits for the end of the restart
    EXPECT_EQ("C Discovery Client: Discovery Client service stopped", log.Take().back());
}

TEST_F(DiscoveryClientTests, AFailureThatComesBackWithEachHelloIsSpacedAndAStopEndsTheWait)
{
    spacing->waitsFrom = 10;
    provider->onSend = [] { ThrowFailure(10038); };
    gateway->beforeHost = [this]
    {
        if (client->State() == ClientState::Starting)
        {
            client->SetBroadcastProvider(provider); // a restart loses it, and the bye of a stop needs none
        }
    };
    std::thread stranger( // who may send at any time
        [this]
        {
            for (int round = 0; round < 200; ++round)
            {
                client->SetBroadcastProvider(provider);
                client->SendHelloMessage();
                std::this_thread::yield();
            }
        });
    client->Start();
    EXPECT_TRUE(Await(spacing->asked, 10));
    EXPECT_LT(spacing->lastHeld, std::chrono::seconds(30));
    stranger.join();
    client->Stop();
    EXPECT_EQ(ClientState::Stopped, client->State());
    client->Start(); // the next failure waits for ever as well
    EXPECT_TRUE(Await(spacing->asked, 1));
    EndClient();
    EXPECT_EQ(11, std::ranges::count(log.Take(), Triggered));
}

TEST_F(DiscoveryClientTests, ARestartThatCannotBindIsTriedAgainWithoutARow)
{
    Silence();
    client->Start();
    spacing->waitsFrom = 4;
    ports->local = 65536;
    log.Take();
    Restart();
    ASSERT_TRUE(Await(spacing->asked, 4)); // one restart, two failed starts, and one that waits
    EXPECT_EQ(ClientState::Stopped, client->State());
    EXPECT_EQ(0, spacing->lastHeld.count());
    const Rows rows = log.Take();
    EXPECT_EQ(1, std::ranges::count(rows, Triggered));
    EXPECT_EQ("C Discovery Client: Starting Discovery Client service (1.0.23)", rows.back());
    ports->local = 12900;
    client->Start(); // takes its place
    EXPECT_EQ(ClientState::Running, client->State());
    client->Stop();
    ports->local = 65536;
    EXPECT_THROW(client->Start(), Tesmo::System::Exception); // nobody tries that again
    EXPECT_EQ(ClientState::Starting, client->State());
    EXPECT_EQ(4, spacing->count);
}

TEST_F(DiscoveryClientTests, ARestartWaitsForItsOwnTimeAfterOneThatWasDropped)
{
    const DiscoveryChannel channel("Requests");
    AsyncRequests requests(channel, spacing, [&](AsyncRequest) { raised.Release(); });
    spacing->waitsFrom = 0;
    for (int round = 0; round < 1000; ++round)
    {
        requests.Ask(AsyncRequest::Restart);
        std::this_thread::yield();
        requests.Withdraw();
    }
    EXPECT_FALSE(raised.WaitOne(0));
    spacing->longest = 200;
    const auto asked = std::chrono::steady_clock::now();
    requests.Ask(AsyncRequest::Restart);
    requests.BeginStart();
    const bool isInTime = std::chrono::steady_clock::now() - asked < std::chrono::milliseconds(200);
    EXPECT_FALSE(raised.WaitOne(300) && isInTime) << "a start takes the place of a restart that waits";
    requests.EndStart();
    spacing->waitsFrom = INT_MAX;
    requests.Ask(AsyncRequest::Restart);
    EXPECT_TRUE(Await(raised, 1));
    requests.End();
}

TEST_F(DiscoveryClientTests, AnyOtherFailureOfARestartEndsTheProcess)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    provider->onSend = [this]
    {
        if (client->State() == ClientState::Stopping) // the bye
        {
            throw Tesmo::System::Exception("no failure of a socket", ThrowSite);
        }
    };
    const auto restart = [this]
    {
        client->Start();
        Restart();
        log.WaitFor("C ClientTaskProcessor: ---Task Processor stopped---"); // the bye is next
        EndClient();
    };
    EXPECT_DEATH(restart(), "");
}

TEST_F(DiscoveryClientTests, WhatRunsEndsWithTheClientInEveryState)
{
    const auto fail = [] { throw std::runtime_error("no Exception of the library"); };
    for (const ClientState state : {ClientState::Starting, ClientState::Stopping, ClientState::Running})
    {
        SCOPED_TRACE(ToDisplayText(state).Utf8());
        MakeClient();
        Silence();
        gateway->beforeHost = [&] { state == ClientState::Starting ? fail() : void(); };
        gateway->onCancel = fail;
        try
        {
            client->Start();
            state == ClientState::Stopping ? client->Stop() : void();
        }
        catch (const std::runtime_error&)
        {
        }
        EXPECT_EQ(state, client->State());
        ASSERT_TRUE(log.WaitFor("C MessageParser: ---Waiting for messages..."));
        EndClient();
        gateway->beforeHost = [] { ADD_FAILURE() << "a thread lives on"; };
        gateway->changes.Release(2);
        EXPECT_EQ(1u, gateway.UseCount());
    }
}

TEST_F(DiscoveryClientTests, AStageThatRunsMayCallTheClientWhileItIsDestroyed)
{
    Semaphore sending(0, 1);
    Semaphore ending(0, 1);
    provider->onSend = [&, this]
    {
        sending.Release();
        EXPECT_TRUE(ending.WaitOne(10000));
        for (int round = 0; round < 1000; ++round) // while the stages are dropped, one after the other
        {
            client->SetBroadcastProvider(provider);
            std::this_thread::yield();
        }
    };
    gateway->onCancel = [&] { ending.Release(); };
    client->SendHelloMessage(); // waits for the start
    gateway->beforeHost = [&, owner = std::this_thread::get_id()]
    {
        if (std::this_thread::get_id() == owner)
        {
            EXPECT_TRUE(sending.WaitOne(10000));
            throw std::runtime_error("no start");
        }
    };
    EXPECT_THROW(client->Start(), std::runtime_error);
    EndClient();
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
}

TEST(RestartSpacingTests, RestartsAfterFailedStartsAreASecondToAMinuteApart)
{
    RestartSpacing spacing;
    EXPECT_EQ(0, spacing.Next(std::chrono::milliseconds(60000)));
    for (const int delay : {1000, 2000, 4000, 8000, 16000, 32000, 60000, 60000})
    {
        EXPECT_EQ(delay, spacing.Next(std::chrono::milliseconds(59999)));
    }
    EXPECT_EQ(0, spacing.Next(std::chrono::milliseconds(60000))); // the start has held
    EXPECT_EQ(1000, spacing.Next(std::chrono::milliseconds(0)));
}
} // namespace Zelkor::Discovery::Client
