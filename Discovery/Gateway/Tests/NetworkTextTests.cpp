#include <Discovery/Gateway/Platform/Linux/NetworkText.h>
#include <fnmatch.h>
#include <gtest/gtest.h>

#include <tuple>

using namespace Zelkor::Discovery::Client::Platform;

TEST(NetworkTextTests, IPv4IsReplacedAndEverythingElseIsKept)
{
    using Row = std::tuple<const char*, std::string, std::string>;
    const AddressPlan plan = {"eth0", "10.1.2.3", "255.255.0.0", "10.1.0.1", 16};
    const std::string begin = MakeNetworkText("", "eth0", plan).substr(0, MakeNetworkText("", "eth0", plan).find("[N"));
    const std::string end = "[Network]\nAddress=10.1.2.3/16\nGateway=10.1.0.1\n";
    EXPECT_NE(std::string::npos, begin.find("[Match]\nName=eth0\n"));
    for (const auto& [name, before, kept] : {
             Row{"nothing before", "", ""},
             Row{"addresses and gateways",
                 "# mine\n[Match]\nName=e*\nType=ether\n[Network]\nAddress = 10.9.1.1/24\nAddress=fd00::1/64\n"
                 "Gateway=10.9.1.254\nGateway=_dhcp4\nGateway=fd00::2\nDNS=10.9.1.3\nDefaultRouteOnDevice=yes\n",
                 "[Network]\nAddress=fd00::1/64\nGateway=fd00::2\nDNS=10.9.1.3\n"},
             Row{"DHCP for both", "[Network]\nDHCP=yes\nIPv6AcceptRA=no\n", "[Network]\nDHCP=ipv6\nIPv6AcceptRA=no\n"},
             Row{"DHCP for IPv4", "[Network]\nDHCP=IPv4\n", "[Network]\nDHCP=no\n"},
             Row{"DHCP for IPv6", "[Network]\nDHCP=ipv6\nLinkLocalAddressing=ipv4\n",
                 "[Network]\nDHCP=ipv6\nLinkLocalAddressing=no\n"},
             Row{"no DHCP", "[Network]\nDHCP=off\nLinkLocalAddressing=yes\n",
                 "[Network]\nDHCP=no\nLinkLocalAddressing=ipv6\n"},
             Row{"sections of their own",
                 "[Address]\nAddress=10.9.1.1/24\nLabel=x\n[Address]\nAddress=fd00::1/64\n[Route]\nGateway=10.9.1.254\n"
                 "[Route]\nDestination=0.0.0.0/0\nScope=link\n[Route]\nGateway=_ipv6ra\n[Route]\nGateway=10.9.1.9\n"
                 "Destination=10.8.0.0/16\n[Route]\nGateway=10.9.1.254\nTable=7\n[Link]\nMTUBytes=1400\n",
                 "[Address]\nAddress=fd00::1/64\n[Route]\nGateway=_ipv6ra\n[Route]\nGateway=10.9.1.9\n"
                 "Destination=10.8.0.0/16\n[Route]\nGateway=10.9.1.254\nTable=7\n[Link]\nMTUBytes=1400\n"},
         })
    {
        SCOPED_TRACE(name);
        EXPECT_EQ(begin + kept + end, MakeNetworkText(before, "eth0", plan));
        EXPECT_EQ(begin + kept + end, MakeNetworkText(begin + kept + end, "eth0", plan)) << "once more";
    }
}

TEST(NetworkTextTests, APatternMatchesItsNameAloneOrThereIsNone)
{
    for (const char* name : {"eth0", "a*", "a?b", "a[bc", "a;b", "a\"b", "$(x)", "a#b", "br-lan.7", "a{b,c}", "~%=+@"})
    {
        const std::string pattern = MatchOf(name);
        EXPECT_EQ(0, fnmatch(pattern.c_str(), name, 0)) << pattern;
        EXPECT_NE(0, fnmatch(pattern.c_str(), "ab", 0)) << pattern;
    }
    for (const char* name : {"!a", "a^", "a]b", "a\\b", "a\x1b", "b\xc3\xbc", "a\nb"})
    {
        EXPECT_EQ("", MatchOf(name)) << name;
    }
}
