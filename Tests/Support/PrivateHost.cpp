#include "PrivateHost.h"

#include "Commands.h"
#include "Events.h"

#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/capability.h>
#include <sched.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

// What a test does must not reach the machine: the namespaces count as entered only when all of this worked.
constexpr const char* Mounts = R"(set -e
mount --make-rprivate /
mount -t tmpfs tmpfs /run
mkdir /run/dbus
for folder in etc usr/sbin
do
    mkdir -p /run/over/$folder/upper /run/over/$folder/work
    mount -t overlay overlay /$folder \
        -o lowerdir=/$folder,upperdir=/run/over/$folder/upper,workdir=/run/over/$folder/work
done)";

PrivateHost::PrivateHost()
    : oldMounts(open("/proc/thread-self/ns/mnt", O_RDONLY | O_CLOEXEC)),
      oldRoot(open("/", O_PATH | O_CLOEXEC)),
      oldFolder(open(".", O_PATH | O_CLOEXEC)),
      left(network.IsEntered() && unshare(CLONE_NEWNS) == 0),
      entered(left && std::system(Mounts) == 0)
{
    unsetenv("DBUS_SYSTEM_BUS_ADDRESS");
}

PrivateHost::~PrivateHost()
{
    std::for_each(programs.begin(), programs.end(), End);
    if (left)
    {
        EXPECT_EQ(0, unshare(CLONE_FS)); // a thread of a sanitizer's own may share what the return needs alone
        EXPECT_EQ(0, setns(oldMounts.Number(), CLONE_NEWNS)); // it leads to the root of these mounts
        EXPECT_EQ(0, fchdir(oldRoot.Number()) | chroot(".") | fchdir(oldFolder.Number()));
    }
}

bool PrivateHost::IsEntered() const
{
    return entered;
}

pid_t PrivateHost::Start(const std::vector<std::string>& arguments)
{
    return programs.emplace_back(Launch(arguments));
}

void PrivateHost::StartBus()
{
    StartService("org.freedesktop.DBus", {"dbus-daemon", "--system", "--nofork", "--nopidfile"});
}

int PrivateHost::StartSilentBus()
{
    const sockaddr_un address{AF_UNIX, "/run/dbus/system_bus_socket"};
    silentBus = Descriptor(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    EXPECT_EQ(0, bind(silentBus.Number(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)));
    EXPECT_EQ(0, listen(silentBus.Number(), SOMAXCONN));
    return silentBus.Number();
}

void PrivateHost::StartService(const std::string& name, const std::vector<std::string>& arguments)
{
    Start(arguments);
    WaitForBusName(name);
}

void WithoutCapabilities(const std::function<void()>& action)
{
    std::thread(
        [&action]
        {
            __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
            __user_cap_data_struct none[_LINUX_CAPABILITY_U32S_3] = {};
            ASSERT_EQ(0, syscall(SYS_capset, &header, none));
            action();
        })
        .join();
}
