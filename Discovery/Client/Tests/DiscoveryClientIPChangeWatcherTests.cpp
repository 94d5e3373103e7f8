#include <Tests/Support/FakeGateway.h>

#include <Discovery/Client/DiscoveryClientIPChangeWatcher.h>
#include <Tests/Support/LogRecorder.h>

namespace Zelkor::Discovery::Client
{
class DiscoveryClientIPChangeWatcherTests : public LogTest
{
protected:
    DiscoveryClientIPChangeWatcherTests() : gateway(new FakeGateway), watcher(gateway)
    {
        watcher.IPChanged += EventHandler(*this, &LogTest::Count);
    }

    Sp<FakeGateway> gateway;
    DiscoveryClientIPChangeWatcher watcher;
};

TEST_F(DiscoveryClientIPChangeWatcherTests, EachChangeRaisesTheEventAndAWaitThatEndsOtherwiseDoesNot)
{
    gateway->changeResult = false;
    watcher.Start();
    gateway->changes.Release(3);
    ASSERT_TRUE(Await(gateway->watching, 4));
    EXPECT_FALSE(raised.WaitOne(0));
    gateway->changeResult = true;
    gateway->changes.Release(2);
    EXPECT_TRUE(Await(raised, 2) && Await(gateway->watching, 2));
    watcher.Stop(); // the cancelled wait looks like a change
    EXPECT_FALSE(raised.WaitOne(0));
    EXPECT_EQ((Rows{"C IPChangeWatcher: ---Waiting for IP changes...",
                    "S IPChangeWatcher: IP change detected ! Triggering action...",
                    "S IPChangeWatcher: IP change detected ! Triggering action...",
                    "C IPChangeWatcher: Stopping IPChangeWatcher", "C IPChangeWatcher: ---IPChangeWatcher stopped---"}),
              log.Take());
}

TEST_F(DiscoveryClientIPChangeWatcherTests, AGatewayThatFailsEndsTheWatcherAlone)
{
    gateway->failing = "RunIPChangeWatcher";
    watcher.Start();
    gateway->changes.Release();
    ASSERT_TRUE(log.WaitFor("E IPChangeWatcher: Aborting : Exception caught in "
                            "IDiscoveryClientDataGateway::RunIPChangeWatcher !"));
    watcher.Stop();
    EXPECT_EQ(1, gateway->watching.Release()); // one wait had begun, and no second one
    EXPECT_FALSE(raised.WaitOne(0));
}

TEST_F(DiscoveryClientIPChangeWatcherTests, AFailingCancelIsLoggedAndTheStopGoesOn)
{
    gateway->failing = "CancelWaitForIPChange"; // the fake ends the wait all the same
    watcher.Start();
    ASSERT_TRUE(gateway->watching.WaitOne(10000));
    log.Take();
    watcher.Stop();
    EXPECT_EQ((Rows{"C IPChangeWatcher: Stopping IPChangeWatcher",
                    "E IPChangeWatcher: Exception caught during call to "
                    "IDiscoveryClientDataGateway::CancelWaitForIPChange !",
                    "C IPChangeWatcher: ---IPChangeWatcher stopped---"}),
              log.Take());
}
} // namespace Zelkor::Discovery::Client
