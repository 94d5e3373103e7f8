#include <Discovery/Gateway/Platform/Linux/SystemBus.h>
#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace std::chrono_literals;
using Zelkor::Discovery::Platform::Deadline;
using Zelkor::Discovery::Platform::SystemBus;

namespace
{

/// A socket in the place of the system bus, with nobody who reads from it.
class SystemBusTests : public testing::Test
{
protected:
    SystemBusTests()
    {
        setenv("DBUS_SYSTEM_BUS_ADDRESS", ("unix:path=" + path).c_str(), 1);
    }
    ~SystemBusTests() override
    {
        unsetenv("DBUS_SYSTEM_BUS_ADDRESS");
        close(bus);
        unlink(path.c_str());
    }

    void Listen()
    {
        sockaddr_un address = {AF_UNIX, {}};
        path.copy(address.sun_path, sizeof(address.sun_path) - 1);
        ASSERT_EQ(0, bind(bus, reinterpret_cast<const sockaddr*>(&address), sizeof(address)));
        ASSERT_EQ(0, listen(bus, 1));
    }

    static std::chrono::steady_clock::duration Since(Deadline begin)
    {
        return std::chrono::steady_clock::now() - begin;
    }

    const std::string path = testing::TempDir() + "bus" + std::to_string(getpid());
    const int bus = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const Deadline begin = std::chrono::steady_clock::now();
};

} // namespace

TEST_F(SystemBusTests, WithoutABusEverythingFailsAtOnce)
{
    SystemBus absent(begin + 10s);
    Listen();
    shutdown(bus, SHUT_RDWR);
    SystemBus deserted(begin + 10s); // a socket that a bus has left behind

    EXPECT_FALSE(absent.HasOwner("org.freedesktop.DBus"));
    EXPECT_EQ(ENOTCONN, absent.LastCode());
    EXPECT_TRUE(absent.IsAbsent());
    EXPECT_TRUE(deserted.IsAbsent());
    EXPECT_LT(Since(begin), 5s);
}

TEST_F(SystemBusTests, ABusThatTakesConnectionsAndNeverAnswersEndsByTheDeadline)
{
    Listen();

    SystemBus silent(begin + 300ms);

    EXPECT_FALSE(silent.IsOpen());
    EXPECT_FALSE(silent.IsAbsent());
    EXPECT_EQ(ETIMEDOUT, silent.LastCode());
    EXPECT_GE(Since(begin), 300ms);
    EXPECT_LT(Since(begin), 5s);
}
