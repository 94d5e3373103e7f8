#include <Discovery/Gateway/Platform/Linux/AddressPlan.h>
#include <gtest/gtest.h>

#include <tuple>

using namespace Zelkor::Discovery::Client::Platform;
using Texts = std::vector<std::string>;

TEST(AddressPlanTests, WhatAHostInItsSubnetCanHaveIsAPlanAndAllElseIsRefusedWithAReason)
{
    AddressPlan plan;
    using Row = std::tuple<const char*, const char*, const char*, const char*, const char*, int>;
    for (const auto& [name, address, mask, gateway, planned, prefixLength] :
         {Row{"eth0", "10.1.2.3", "255.255.255.0", "10.1.2.1", "10.1.2.1", 24},
          Row{"a;b", "10.1.2.3", "255.0.0.0", "0.0.0.0", "", 8}, Row{"eth0", "192.168.1.0", "255.255.0.0", "", "", 16},
          Row{"eth0", "10.1.2.1", "255.255.255.252", "10.1.2.2", "10.1.2.2", 30},
          Row{"eth0", "10.1.2.2", "255.255.255.254", "10.1.2.3", "10.1.2.3", 31},
          Row{"eth0", "223.1.2.3", "128.0.0.0", "192.0.0.1", "192.0.0.1", 1}})
    {
        EXPECT_FALSE(MakePlan({name, address, mask, gateway}, plan)) << address;
        EXPECT_EQ((Texts{name, address, mask, planned}), (Texts{plan.adapter, plan.address, plan.mask, plan.gateway}));
        EXPECT_EQ(prefixLength, plan.prefixLength);
    }
    for (const char* const name : {"", "-x"})
    {
        EXPECT_TRUE(MakePlan({name, "10.1.2.3", "255.255.255.0", "10.1.2.1"}, plan)) << name;
    }
    for (const char* const address : {"0.0.0.0", "127.0.0.1", "224.0.0.1", "255.255.255.255", "10.1.2.0", "10.1.2.255",
                                      "10.1.2.3;reboot", "fd00::1", ""})
    {
        EXPECT_TRUE(MakePlan({"eth0", address, "255.255.255.0", ""}, plan)) << address;
    }
    for (const char* const mask : {"0.0.0.0", "255.255.255.255", "255.255.0.255", "0.255.255.0", "--help"})
    {
        EXPECT_TRUE(MakePlan({"eth0", "10.1.2.3", mask, ""}, plan)) << mask;
    }
    // The first one is the value of a gateway that is unset.
    for (const char* const gateway : {"255.255.255.255", "10.1.3.1", "10.1.2.3", "10.1.2.0", "10.1.2.255", "none"})
    {
        EXPECT_TRUE(MakePlan({"eth0", "10.1.2.3", "255.255.255.0", gateway}, plan)) << gateway;
    }
}
