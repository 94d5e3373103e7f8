#include <Discovery/Gateway/Platform/Linux/AddressPlan.h>
#include <gtest/gtest.h>

#include <tuple>

using Zelkor::Discovery::Platform::AddressPlan;
using Zelkor::Discovery::Platform::MakePlan;

TEST(AddressPlanTests, WhatAHostInItsSubnetCanHaveIsAPlanAndAllElseIsRefusedWithAReason)
{
    using Row = std::tuple<const char*, const char*, const char*, const char*, const char*, int>;
    for (const auto& [name, address, mask, gateway, planned, prefixLength] : {
             Row{"eth0", "10.1.2.3", "255.255.255.0", "10.1.2.1", "10.1.2.1", 24},
             Row{"a;b", "10.1.2.3", "255.0.0.0", "0.0.0.0", "", 8},
             Row{"eth0", "192.168.1.0", "255.255.0.0", "", "", 16},
             Row{"eth0", "10.1.2.1", "255.255.255.252", "10.1.2.2", "10.1.2.2", 30},
             Row{"eth0", "10.1.2.2", "255.255.255.254", "10.1.2.3", "10.1.2.3", 31},
             Row{"eth0", "223.1.2.3", "128.0.0.0", "192.0.0.1", "192.0.0.1", 1},
             Row{"", "10.1.2.3", "255.255.255.0", "", "", 0}, // refused, as are all below
             Row{"-x", "10.1.2.3", "255.255.255.0", "", "", 0},
             Row{"eth0", "0.0.0.0", "255.255.255.0", "", "", 0},
             Row{"eth0", "127.0.0.1", "255.0.0.0", "", "", 0},
             Row{"eth0", "224.0.0.1", "255.255.255.0", "", "", 0},
             Row{"eth0", "255.255.255.255", "255.255.255.0", "", "", 0},
             Row{"eth0", "10.1.2.0", "255.255.255.0", "", "", 0},
             Row{"eth0", "10.1.2.255", "255.255.255.0", "", "", 0},
             Row{"eth0", "10.1.2.3;reboot", "255.255.255.0", "", "", 0},
             Row{"eth0", "fd00::1", "255.255.255.0", "", "", 0},
             Row{"eth0", "10.1.2.3", "0.0.0.0", "", "", 0},
             Row{"eth0", "10.1.2.3", "255.255.255.255", "", "", 0},
             Row{"eth0", "10.1.2.3", "255.255.0.255", "", "", 0},
             Row{"eth0", "10.1.2.3", "0.255.255.0", "", "", 0},
             Row{"eth0", "10.1.2.3", "--help", "", "", 0},
             Row{"eth0", "10.1.2.3", "255.255.255.0", "255.255.255.255", "", 0}, // the value of one that is unset
             Row{"eth0", "10.1.2.3", "255.255.255.0", "10.1.3.1", "", 0},
             Row{"eth0", "10.1.2.3", "255.255.255.0", "10.1.2.3", "", 0},
             Row{"eth0", "10.1.2.3", "255.255.255.0", "10.1.2.0", "", 0},
             Row{"eth0", "10.1.2.3", "255.255.255.0", "10.1.2.255", "", 0},
             Row{"eth0", "10.1.2.3", "255.255.255.0", "none", "", 0},
         })
    {
        AddressPlan plan;
        const std::string reason = MakePlan({name, address, mask, gateway}, plan);
        EXPECT_EQ(prefixLength > 0, reason.empty()) << address << " " << mask << " " << gateway;
        if (prefixLength > 0)
        {
            EXPECT_EQ((std::vector<std::string>{name, address, mask, planned, std::to_string(prefixLength)}),
                      (std::vector<std::string>{plan.adapter, plan.address, plan.mask, plan.gateway,
                                                std::to_string(plan.prefixLength)}));
        }
    }
}
