#include <Discovery/Gateway/Platform/Linux/InterfacesText.h>
#include <gtest/gtest.h>

#include <tuple>

using namespace Zelkor::Discovery::Client::Platform;

namespace
{

const AddressPlan Plan = {"eth0", "10.1.2.3", "255.255.0.0", "10.1.0.1", 16};

std::string Rewrite(const std::string& before, const AddressPlan& plan = Plan)
{
    InterfacesText text(before);
    const std::vector<LogicalLine> others = text.TakeStanzas(plan.adapter, true);
    text.WriteStanza(plan, others);
    return text.Text();
}

const std::string Written = "    address 10.1.2.3\n    netmask 255.255.0.0\n    gateway 10.1.0.1\n";

} // namespace

TEST(InterfacesTextTests, OneStanzaIsRewrittenWhereItStandsAndTheRestStays)
{
    using Row = std::tuple<const char*, std::string, std::string>;
    const std::string around = "# eth0 inet\nauto lo eth0\niface lo inet loopback\n\n";
    const std::string behind = "\n# next\niface eth0 inet6 static\n  address fd00::1/64\n\tgateway fd00::2\n"
                               "iface eth01 inet static\n  address 10.9.9.9/24\nmapping eth0\n  script address\n";
    for (const auto& [name, before, after] : {
             Row{"dhcp", around + "iface eth0 inet dhcp\n    hostname x\n" + behind,
                 around + "iface eth0 inet static\n" + Written + "    hostname x\n" + behind},
             Row{"every address option",
                 around +
                     "iface eth0 inet static\n    address 10.9.1.1/24\n    # dns\n    netmask 255.255.255.0\n"
                     "    broadcast +\n    network 10.9.1.0\n    gateway 10.9.1.254\n    pointopoint 10.9.1.2\n"
                     "    dns-nameservers 10.9.1.3\n" +
                     behind,
                 around + "iface eth0 inet static\n" + Written + "    # dns\n    dns-nameservers 10.9.1.3\n" + behind},
             Row{"continued lines, template, tabs",
                 "\tiface eth0 \\\n inet manual inherits base\n\taddr\\\ness 10.9.1.1\n\tup a \\\n\t\tb\n",
                 "\tiface eth0 inet static inherits base\n\taddress 10.1.2.3\n\tnetmask 255.255.0.0\n"
                 "\tgateway 10.1.0.1\n\tup a \\\n\t\tb\n"},
             Row{"no line end at the end", "iface eth0 inet dhcp", "iface eth0 inet static\n" + Written},
             Row{"no IPv4 stanza yet", "auto eth0\niface eth0 inet6 auto\n  mtu 1400\n",
                 "auto eth0\niface eth0 inet static\n" + Written + "iface eth0 inet6 auto\n  mtu 1400\n"},
             Row{"several stanzas become one",
                 "iface eth0 inet static\n    address 10.9.1.1/24\n    mtu 1400\n    dns-search a\n    up one\n# "
                 "between\nauto eth0\n"
                 "iface eth0 inet static\n  address 10.9.2.1/24\n  mtu 1500\n  dns-search b\n  up one\n  up two\n  # "
                 "note\nauto eth1\n",
                 "iface eth0 inet static\n" + Written +
                     "    mtu 1400\n    dns-search a\n    up one\n  dns-search b\n  up two\n# between\nauto eth0\n  # "
                     "note\nauto eth1\n"},
         })
    {
        SCOPED_TRACE(name);
        EXPECT_EQ(after, Rewrite(before));
        EXPECT_EQ(after, Rewrite(after)) << "once more";
    }
}

TEST(InterfacesTextTests, WithoutAGatewayNoneStays)
{
    EXPECT_EQ("iface eth0 inet static\n  address 10.1.2.3\n  netmask 255.255.0.0\n",
              Rewrite("iface eth0 inet static\n  gateway 10.1.1.1\n  address 10.1.1.2/24\n",
                      {"eth0", "10.1.2.3", "255.255.0.0", "", 16}));
}

TEST(InterfacesTextTests, FilesPulledInAreToldWithTheirKind)
{
    std::string told;
    for (const auto& [pattern, isFolder] : InterfacesText("#source no\niface lo inet loopback\n source\td/*.cfg /x \n"
                                                          "source-directory \\\n /e\nsource-dir f\nsource\nsources g\n")
                                               .Inclusions())
    {
        told += pattern + (isFolder ? " (folder), " : ", ");
    }
    EXPECT_EQ("d/*.cfg /x, /e (folder), f (folder), ", told);
}

TEST(InterfacesTextTests, WhatCannotBeRewrittenSafelyIsAnObstacle)
{
    EXPECT_FALSE(InterfacesText("iface eth0 inet dhcp\niface ppp0 inet ppp\n").Obstacle("eth0"));
    EXPECT_TRUE(InterfacesText("iface ppp0 inet ppp\n").Obstacle("ppp0"));
    EXPECT_TRUE(InterfacesText("iface eth0 inherits base\n").Obstacle("eth0"));
}
