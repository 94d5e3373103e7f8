#include <Discovery/Gateway/Platform/AddressChange.h>
#include <Tests/Support/CoreTest.h>

using namespace Zelkor::Discovery::Client::Platform;
using Tesmo::System::Threading::Semaphore;

TEST(AddressChangeTests, NoCancelIsLostBeforeTheFirstWaitOrBetweenTwo)
{
    constexpr int limit = 10000; // milliseconds
    Semaphore ended(0, Int32::MaxValue);
    std::atomic<bool> mayEnd = false;
    CancelAddressChangeWait();
    const std::jthread waiting(
        [&]
        {
            for (; !mayEnd; ended.Release())
            {
                WaitForAddressChange();
            }
        });
    EXPECT_TRUE(ended.WaitOne(limit)) << "the cancel before it ends the first wait";
    int round = 0;
    for (bool hasEnded = true; hasEnded && round < 2000; round += hasEnded ? 1 : 0)
    {
        CancelAddressChangeWait();
        hasEnded = ended.WaitOne(limit);
    }
    EXPECT_EQ(2000, round);
    EXPECT_FALSE(ended.WaitOne(0)) << "one cancel ends one wait";
    mayEnd = true;
    CancelAddressChangeWait(); // the thread may have ended already
}
