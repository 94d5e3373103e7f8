#include <Discovery/Gateway/Platform/Linux/HostCommand.h>
#include <Tests/Support/IsolatedTest.h>
#include <linux/capability.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <thread>

using namespace std::chrono_literals;
using Zelkor::Discovery::Client::Platform::RunHostCommand;

namespace
{

// A service manager whose units consist of one process each, out of the caller's process group.
constexpr const char* PutManager = R"(cd /usr/sbin
cat >systemd-run <<'END'
#!/bin/sh
for word; do case $word in --unit=*) unit=${word#*=} ;; esac; done
setsid tail -f /dev/null </dev/null >/dev/null 2>&1 &
echo $! | tee "/run/$unit" >/run/process
[ "$word" != hang ] || wait
END
printf '#!/bin/sh\nfor unit; do :; done\nkill -KILL $(cat "/run/$unit")\n' >systemctl
chmod +x systemd-run systemctl)";

/// Runs the program for a caller without rights over the network.
/// @returns whether what was started has ended within the limit
bool EndsAfter(const char* program, int code, int limit)
{
    std::thread(
        [&]
        {
            prctl(PR_CAPBSET_DROP, CAP_NET_ADMIN);
            EXPECT_EQ(code, RunHostCommand({program}, std::chrono::steady_clock::now() + 2s).code);
        })
        .join();
    const int process = std::stoi(ReadText("/run/process"));
    const Descriptor end(static_cast<int>(syscall(SYS_pidfd_open, process, 0)));
    pollfd ended = {end.Number(), POLLIN, 0};
    return end.Number() < 0 || poll(&ended, 1, limit) == 1;
}

} // namespace

using HostCommandTests = IsolatedTest<PrivateHost>;

TEST_F(HostCommandTests, WhatTheServiceManagerStartedEndsAtTheDeadlineAndNotBefore)
{
    Shell(PutManager);
    EXPECT_TRUE(EndsAfter("hang", -1, 10000));
    EXPECT_FALSE(EndsAfter("end", 0, 0));
    Shell("kill -KILL $(cat /run/process)");
}
