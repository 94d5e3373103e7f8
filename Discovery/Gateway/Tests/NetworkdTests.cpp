#include "AdapterSettingsTest.h"

namespace
{

class NetworkdTests : public AdapterSettingsTests
{
};

} // namespace

TEST_P(NetworkdTests, DropInsOfTheFormerFileCountOn)
{
    Shell(
        "mkdir /etc/systemd/network/10-v0.network.d /run/systemd/network /run/systemd/network/10-v0.network.d;"
        "printf '[Network]\\nAddress=10.4.0.1/24\\nAddress=fd00::9/64\\n' >/etc/systemd/network/10-v0.network.d/a.conf;"
        "printf '[Address]\\nAddress=fd00::a/64\\n' >/run/systemd/network/10-v0.network.d/b.conf");

    ExpectApplied({"v0", "10.2.0.5", "255.255.0.0", "10.2.0.1"}, "10.2.0.5/16 via 10.2.0.1");

    const std::string addresses = Output("ip -6 addr show dev v0");
    EXPECT_NE(std::string::npos, addresses.find("fd00::9/64"));
    EXPECT_NE(std::string::npos, addresses.find("fd00::a/64"));
}

TEST_P(NetworkdTests, AnAdapterThatWaitsForItsFileIsRefused)
{
    managed.reset();
    Shell("umount /sys");
    managed = std::make_unique<ManagedHost>(GetParam());
    Shell("mount -o remount,rw /sys"); // writable: the daemon waits for udev before it looks at an adapter
    managed->Start();

    const std::string remark = RefusalWithoutTrace({"v0", "10.2.0.5", "255.255.0.0", "10.2.0.1"});

    EXPECT_NE(std::string::npos, remark.find("has not chosen")) << remark;
}

INSTANTIATE_TEST_SUITE_P(, NetworkdTests, testing::Values(Manager::Networkd), NameOf);
