#include "PrivateNetwork.h"

#include "Commands.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>

PrivateNetwork::PrivateNetwork()
    : oldNetwork(open("/proc/thread-self/ns/net", O_RDONLY | O_CLOEXEC)),
      oldHostName(open("/proc/thread-self/ns/uts", O_RDONLY | O_CLOEXEC)),
      entered(unshare(CLONE_NEWNET | CLONE_NEWUTS) == 0)
{
    if (entered)
    {
        Shell("ip link set lo up");
    }
}

PrivateNetwork::~PrivateNetwork()
{
    if (entered)
    {
        EXPECT_EQ(0, setns(oldNetwork.Number(), CLONE_NEWNET));
        EXPECT_EQ(0, setns(oldHostName.Number(), CLONE_NEWUTS));
    }
}
