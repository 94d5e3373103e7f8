#include "NetworkNamespace.h"

#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <unistd.h>

NetworkNamespace::NetworkNamespace()
    : oldNetwork(open("/proc/thread-self/ns/net", O_RDONLY | O_CLOEXEC)),
      oldHostName(open("/proc/thread-self/ns/uts", O_RDONLY | O_CLOEXEC)),
      entered(unshare(CLONE_NEWNET | CLONE_NEWUTS) == 0)
{
    if (entered)
    {
        Shell("ip link set lo up");
    }
}

NetworkNamespace::~NetworkNamespace()
{
    if (entered)
    {
        EXPECT_EQ(0, setns(oldNetwork, CLONE_NEWNET));
        EXPECT_EQ(0, setns(oldHostName, CLONE_NEWUTS));
    }
    close(oldNetwork);
    close(oldHostName);
}

bool NetworkNamespace::IsEntered() const
{
    return entered;
}

void Shell(const std::string& commands)
{
    ASSERT_EQ(0, std::system(("set -e; " + commands).c_str())) << commands;
}
