#include "AdapterSettingsTest.h"

namespace
{

/// Programs that fail or hang halfway.
class IfupdownTests : public AdapterSettingsTests
{
protected:
    /// A hook for the new address alone.
    static void PutHook(const std::string& command)
    {
        Shell("printf '#!/bin/sh\\n[ \"$IF_ADDRESS\" != 10.2.0.5 ] || " + command +
              "\\n' >/etc/network/if-up.d/00test; chmod +x /etc/network/if-up.d/00test");
    }
};

} // namespace

TEST_P(IfupdownTests, AFailedChangeLeavesTheFormerFileAndTheFormerAddresses)
{
    Shell("ln -s /etc/network/interfaces.d/v0 /etc/network/link; chmod 640 /etc/network/interfaces.d/v0;"
          "chgrp netdev /etc/network/interfaces.d/v0; sed -i s,interfaces.d/..,link, /etc/network/interfaces");
    const std::string files = Files();
    PutHook("{ echo out of order; exit 9; }");
    std::string remark;

    EXPECT_NE(0, Apply({"v0", "10.2.0.5", "255.255.0.0", "10.2.0.1"}, remark));

    EXPECT_NE(std::string::npos, remark.find("out of order")) << remark;
    Shell("rm /etc/network/if-up.d/00test");
    EXPECT_EQ(files, Files());
    EXPECT_EQ("10.1.0.1/24 10.1.1.1/24 via 10.1.0.254", State("v0"));
    ExpectApplied({"v0", "10.2.0.5", "255.255.0.0", "10.2.0.1"}, "10.2.0.5/16 via 10.2.0.1");
    EXPECT_EQ("symbolic link\n640 netdev\n",
              Output("stat -c %F /etc/network/link; stat -c '%a %G' /etc/network/interfaces.d/v0"));
}

TEST_P(IfupdownTests, AHangingHookIsAFailureWithinTheLimit)
{
    const std::string files = Files();
    PutHook("sleep 100");
    std::string remark;

    EXPECT_NE(0, Apply({"v0", "10.2.0.5", "255.255.0.0", "10.2.0.1"}, remark));

    EXPECT_NE("", remark);
    EXPECT_EQ("10.1.0.1/24 10.1.1.1/24 via 10.1.0.254", State("v0"));
    Shell("rm /etc/network/if-up.d/00test");
    EXPECT_EQ(files, Files());
}

TEST_P(IfupdownTests, AnAdapterUnderASharedNameIsRefused)
{
    Shell("printf 'auto /v2=office\\niface office inet static\\n  address 10.8.0.1/24\\n' >>/etc/network/interfaces");
    AddAdapter("v2");
    Shell("ifup v2=office");
    const std::string files = Files();
    std::string remark;

    EXPECT_NE(0, Apply({"v2", "10.2.0.5", "255.255.0.0", "10.2.0.1"}, remark));

    EXPECT_NE(std::string::npos, remark.find("office")) << remark;
    EXPECT_EQ("10.8.0.1/24", State("v2"));
    EXPECT_EQ(files, Files());
}

TEST_P(IfupdownTests, ATemplateThatSaysAddressesIsRefused)
{
    AddAdapter("v2");
    Shell("printf 'iface root inet static\\n  netmask 24\\niface base inet static inherits root\\n  mtu 1400\\n"
          "auto v2\\niface v2 inet static inherits base\\n  address 10.8.0.1\\n' >>/etc/network/interfaces; ifup v2");
    const std::string files = Files();
    std::string remark;

    EXPECT_NE(0, Apply({"v2", "10.2.0.5", "255.255.0.0", "0.0.0.0"}, remark));

    EXPECT_NE(std::string::npos, remark.find("template root")) << remark;
    EXPECT_EQ(files, Files());
    Shell("sed -i /netmask/d /etc/network/interfaces");
    ExpectApplied({"v2", "10.8.0.2", "255.255.255.0", "0.0.0.0"}, "10.8.0.2/24");
}

TEST_P(IfupdownTests, AnAdapterThatIfdownDeletesIsMadeAgain)
{
    Shell("printf 'auto b0\\niface b0 inet static\\n  address 10.3.0.1/24\\n  pre-up ip link add b0 type bridge\\n"
          "  post-down ip link delete b0\\n' >>/etc/network/interfaces; ifup b0");

    ExpectApplied({"b0", "10.3.0.2", "255.255.255.0", "0.0.0.0"}, "10.3.0.2/24");

    PutHook("exit 9");
    std::string remark;
    EXPECT_NE(0, Apply({"b0", "10.2.0.5", "255.255.0.0", "0.0.0.0"}, remark));
    EXPECT_EQ(std::string::npos, remark.find("not restored")) << remark;
    EXPECT_EQ("10.3.0.2/24", State("b0"));
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
    std::string remark;
    EXPECT_NE(0, Apply({"v0", "10.2.0.5", "255.255.0.0", "10.2.0.1"}, remark));
    EXPECT_EQ(std::string::npos, remark.find("not restored")) << remark;
    EXPECT_EQ("10.4.0.1/24", State("v0.4095"));

    Shell("sed -i '/ip link add v0.4095/d' /etc/network/interfaces.d/v0");
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
