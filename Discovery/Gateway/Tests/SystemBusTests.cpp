#include <Discovery/Gateway/Platform/Linux/SystemBus.h>
#include <Tests/Support/IsolatedTest.h>
#include <Tests/Support/PrivateHost.h>
#include <sys/socket.h>

using namespace std::chrono_literals;
using Zelkor::Discovery::Platform::Deadline;
using Zelkor::Discovery::Platform::SystemBus;

namespace
{

class SystemBusTests : public IsolatedTest<PrivateHost>
{
protected:
    std::chrono::steady_clock::duration SinceBegin() const
    {
        return std::chrono::steady_clock::now() - begin;
    }

    const Deadline begin = std::chrono::steady_clock::now();
};

} // namespace

TEST_F(SystemBusTests, WithoutABusEverythingFailsAtOnce)
{
    SystemBus absent(begin + 10s);
    shutdown(host.StartSilentBus(), SHUT_RDWR);
    SystemBus deserted(begin + 10s); // a socket that a bus has left behind

    EXPECT_FALSE(absent.HasOwner("org.freedesktop.DBus"));
    EXPECT_EQ(ENOTCONN, absent.LastCode());
    EXPECT_TRUE(absent.IsAbsent());
    EXPECT_TRUE(deserted.IsAbsent());
    EXPECT_LT(SinceBegin(), 5s);
}

TEST_F(SystemBusTests, ABusThatTakesConnectionsAndNeverAnswersEndsByTheDeadline)
{
    host.StartSilentBus();

    SystemBus silent(begin + 300ms);

    EXPECT_FALSE(silent.IsOpen());
    EXPECT_FALSE(silent.IsAbsent());
    EXPECT_EQ(ETIMEDOUT, silent.LastCode());
    EXPECT_GE(SinceBegin(), 300ms);
    EXPECT_LT(SinceBegin(), 5s);
}
