#include <Discovery/Gateway/Platform/Linux/HostCommand.h>
#include <Tests/Support/Commands.h>
#include <Tests/Support/PrivateHost.h>
#include <gtest/gtest.h>
#include <linux/capability.h>
#include <sys/prctl.h>
#include <thread>

using namespace std::chrono_literals;
using Zelkor::Discovery::Platform::RunHostCommand;

// A service manager whose units consist of one process each, out of the caller's process group.
constexpr const char* PutManager = R"(cd /usr/sbin
cat >systemd-run <<'END'
#!/bin/sh
for word; do case $word in --unit=*) unit=${word#*=} ;; esac; done
setsid sleep 100 </dev/null >/dev/null 2>&1 &
echo $! >"/run/$unit"
[ "$word" != hang ] || wait
END
printf '#!/bin/sh\nfor unit; do :; done\nkill -KILL $(cat "/run/$unit")\n' >systemctl
chmod +x systemd-run systemctl)";

TEST(HostCommandTests, WhatTheServiceManagerStartedEndsAtTheDeadlineAndNotBefore)
{
    const PrivateHost host;
    if (!host.IsEntered())
    {
        GTEST_SKIP() << "the system refuses namespaces";
    }
    Shell(PutManager);
    const auto run = [](const char* program, int code)
    {
        prctl(PR_CAPBSET_DROP, CAP_NET_ADMIN);
        EXPECT_EQ(code, RunHostCommand({program}, std::chrono::steady_clock::now() + 2s).code);
    };

    std::thread(run, "hang", -1).join();
    Shell(
        "cd /run; n=0; while grep -q sleep /proc/$(cat *.service)/cmdline; do n=$((n + 1)); [ $n -lt 500 ]; sleep .02;"
        "done; rm *.service");

    std::thread(run, "end", 0).join();
    Shell("kill -KILL $(cat /run/*.service)");
}
