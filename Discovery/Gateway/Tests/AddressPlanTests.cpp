#include <Discovery/Gateway/Platform/Linux/AddressPlan.h>
#include <gtest/gtest.h>

#include <tuple>

using Zelkor::Discovery::Platform::AdapterSettings;
using Zelkor::Discovery::Platform::AddressPlan;
using Zelkor::Discovery::Platform::MakePlan;

TEST(AddressPlanTests, WhatAHostInItsSubnetCanHaveIsAPlan)
{
    using Row = std::tuple<AdapterSettings, const char*, int>;
    for (const auto& [settings, gateway, prefixLength] :
         {Row{{"eth0", "10.1.2.3", "255.255.255.0", "10.1.2.1"}, "10.1.2.1", 24},
          Row{{"a;b", "10.1.2.3", "255.0.0.0", "0.0.0.0"}, "", 8},
          Row{{"eth0", "192.168.1.0", "255.255.0.0", ""}, "", 16},
          Row{{"eth0", "10.1.2.1", "255.255.255.252", "10.1.2.2"}, "10.1.2.2", 30},
          Row{{"eth0", "10.1.2.2", "255.255.255.254", "10.1.2.3"}, "10.1.2.3", 31},
          Row{{"eth0", "223.1.2.3", "128.0.0.0", "192.0.0.1"}, "192.0.0.1", 1}})
    {
        SCOPED_TRACE(settings.ipAddressText);
        AddressPlan plan;
        EXPECT_EQ("", MakePlan(settings, plan));
        EXPECT_EQ(settings.adapterName, plan.adapter);
        EXPECT_EQ(settings.ipAddressText, plan.address);
        EXPECT_EQ(settings.ipMaskText, plan.mask);
        EXPECT_EQ(gateway, plan.gateway);
        EXPECT_EQ(prefixLength, plan.prefixLength);
    }
}

TEST(AddressPlanTests, WhatWouldCutTheHostOffOrIsNoAddressIsRefusedWithAReason)
{
    for (const AdapterSettings& settings : {
             AdapterSettings{"", "10.1.2.3", "255.255.255.0", "0.0.0.0"},
             AdapterSettings{"-x", "10.1.2.3", "255.255.255.0", "0.0.0.0"},
             AdapterSettings{"eth0", "0.0.0.0", "255.255.255.0", "0.0.0.0"},
             AdapterSettings{"eth0", "127.0.0.1", "255.0.0.0", "0.0.0.0"},
             AdapterSettings{"eth0", "224.0.0.1", "255.255.255.0", "0.0.0.0"},
             AdapterSettings{"eth0", "255.255.255.255", "255.255.255.0", "0.0.0.0"},
             AdapterSettings{"eth0", "10.1.2.0", "255.255.255.0", "0.0.0.0"},
             AdapterSettings{"eth0", "10.1.2.255", "255.255.255.0", "0.0.0.0"},
             AdapterSettings{"eth0", "10.1.2.3;reboot", "255.255.255.0", "0.0.0.0"},
             AdapterSettings{"eth0", "fd00::1", "255.255.255.0", "0.0.0.0"},
             AdapterSettings{"eth0", "10.1.2.3", "0.0.0.0", "0.0.0.0"},
             AdapterSettings{"eth0", "10.1.2.3", "255.255.255.255", "0.0.0.0"},
             AdapterSettings{"eth0", "10.1.2.3", "255.255.0.255", "0.0.0.0"},
             AdapterSettings{"eth0", "10.1.2.3", "0.255.255.0", "0.0.0.0"},
             AdapterSettings{"eth0", "10.1.2.3", "--help", "0.0.0.0"},
             AdapterSettings{"eth0", "10.1.2.3", "255.255.255.0", "255.255.255.255"}, // the value of one that is unset
             AdapterSettings{"eth0", "10.1.2.3", "255.255.255.0", "10.1.3.1"},
             AdapterSettings{"eth0", "10.1.2.3", "255.255.255.0", "10.1.2.3"},
             AdapterSettings{"eth0", "10.1.2.3", "255.255.255.0", "10.1.2.0"},
             AdapterSettings{"eth0", "10.1.2.3", "255.255.255.0", "10.1.2.255"},
             AdapterSettings{"eth0", "10.1.2.3", "255.255.255.0", "none"},
         })
    {
        AddressPlan plan;
        EXPECT_NE("", MakePlan(settings, plan))
            << settings.ipAddressText << settings.ipMaskText << settings.gatewayText;
    }
}
