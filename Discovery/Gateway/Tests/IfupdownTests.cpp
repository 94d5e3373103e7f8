#include "AdapterSettingsFixture.h"

/// Programs that fail or hang halfway.
class IfupdownTests : public AdapterSettingsFixture
{
protected:
    /// A hook for the new address alone.
    static void PutHook(const std::string& command)
    {
        Shell("printf '#!/bin/sh\\n[ \"$IF_ADDRESS\" != 10.2.0.5 ] || " + command +
              "\\n' >/etc/network/if-up.d/00test; chmod +x /etc/network/if-up.d/00test");
    }
};

TEST_P(IfupdownTests, AChangeThatFailsOrHangsLeavesTheFormerFileAndTheFormerAddresses)
{
    Shell("ln -s /etc/network/interfaces.d/v0 /etc/network/link; chmod 640 /etc/network/interfaces.d/v0;"
          "chgrp netdev /etc/network/interfaces.d/v0; sed -i s,interfaces.d/..,link, /etc/network/interfaces");
    const AdapterSettings settings = {"v0", "10.2.0.5", "255.255.0.0", "10.2.0.1"};
    PutHook("tail -f /dev/null");
    RefusalWithoutTrace(settings);
    PutHook("{ echo out of order; exit 9; }");
    const std::string remark = RefusalWithoutTrace(settings);
    EXPECT_NE(std::string::npos, remark.find("out of order")) << remark;

    PutHook("true");
    ExpectApplied(settings, "10.2.0.5/16 via 10.2.0.1");
    EXPECT_EQ("symbolic link\n640 netdev\n",
              Output("stat -c %F /etc/network/link; stat -c '%a %G' /etc/network/interfaces.d/v0"));
}

TEST_P(IfupdownTests, AnAdapterUnderASharedNameOrWithAddressesFromATemplateIsRefused)
{
    AddAdapter("v2");
    AddAdapter("v3");
    Shell("printf 'auto /v2=office\niface office inet static\n  address 10.8.0.1/24\n"
          "iface root inet static\n  netmask 24\niface base inet static inherits root\n  mtu 1400\n"
          "auto v3\niface v3 inet static inherits base\n  address 10.9.0.1\n' >>/etc/network/interfaces;"
          "ifup v2=office v3");

    const std::string shared = RefusalWithoutTrace({"v2", "10.2.0.5", "255.255.0.0", "10.2.0.1"});
    EXPECT_NE(std::string::npos, shared.find("office")) << shared;
    const std::string inherited = RefusalWithoutTrace({"v3", "10.2.0.5", "255.255.0.0", "0.0.0.0"});
    EXPECT_NE(std::string::npos, inherited.find("template root")) << inherited;

    Shell("sed -i /netmask/d /etc/network/interfaces");
    ExpectApplied({"v3", "10.9.0.2", "255.255.255.0", "0.0.0.0"}, "10.9.0.2/24");
}

TEST_P(IfupdownTests, AnAdapterThatIfdownDeletesIsMadeAgain)
{
    Shell("printf 'auto b0\\niface b0 inet static\\n  address 10.3.0.1/24\\n  pre-up ip link add b0 type bridge\\n"
          "  post-down ip link delete b0\\n' >>/etc/network/interfaces; ifup b0");

    ExpectApplied({"b0", "10.3.0.2", "255.255.255.0", "0.0.0.0"}, "10.3.0.2/24");

    PutHook("exit 9");
    Refusal({"b0", "10.2.0.5", "255.255.0.0", "0.0.0.0"});
}

TEST_P(IfupdownTests, VlansComeBackWithTheirAdapterOrAreTold)
{
    // Not every kernel has VLANs, and none has this number: ifup takes what stands there by that name.
    Shell("sed -i '/gateway/a\\  up ip link add v0.4095 type bridge' /etc/network/interfaces.d/v0;"
          "printf 'iface v0.4095 inet static\\n  address 10.4.0.1/24\\n' >>/etc/network/interfaces;"
          "ip link add v0.4095 type bridge; ifup v0.4095");
    ExpectApplied({"v0", "10.2.0.6", "255.255.0.0", "10.2.0.1"}, "10.2.0.6/16 via 10.2.0.1");
    EXPECT_EQ("10.4.0.1/24", State("v0.4095"));

    PutHook("exit 9");
    Refusal({"v0", "10.2.0.5", "255.255.0.0", "10.2.0.1"});
    EXPECT_EQ("10.4.0.1/24", State("v0.4095"));

    Shell("sed -i '/ip link add v0.4095/d' /etc/network/interfaces.d/v0");
    std::string remark;
    EXPECT_EQ(0, Apply({"v0", "10.2.0.7", "255.255.0.0", "10.2.0.1"}, remark)) << remark;
    EXPECT_NE(std::string::npos, remark.find("v0.4095")) << remark;
}

TEST_P(IfupdownTests, AnAdapterThatNoRestartBringsUpIsStartedByTheNext)
{
    AddAdapter("v2");
    AddAdapter("w0");
    Shell("printf 'iface v2 inet manual\\nauto other /w*\\niface w0 inet manual\\n' >>/etc/network/interfaces");
    ExpectApplied({"v2", "10.8.0.1", "255.255.255.0", "0.0.0.0"}, "10.8.0.1/24");
    ExpectApplied({"w0", "10.9.0.1", "255.255.255.0", "0.0.0.0"}, "10.9.0.1/24");

    Shell("ifdown --force v2; ifup -a || true"); // as at the start of the host

    EXPECT_EQ("10.8.0.1/24", State("v2"));
    EXPECT_EQ("auto v2\n", Output("grep -r '^auto [vw][02]' /etc/network/interfaces"));
}

INSTANTIATE_TEST_SUITE_P(, IfupdownTests, testing::Values(Manager::Ifupdown), NameOf);
