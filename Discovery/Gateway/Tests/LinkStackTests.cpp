#include <Discovery/Gateway/Platform/Linux/LinkStack.h>
#include <gtest/gtest.h>

using Zelkor::Discovery::Client::Platform::FindStack;
using Links = std::map<int, Zelkor::Discovery::Client::Platform::LinkPlace>;
using Stack = std::set<std::pair<int, int>>;

TEST(LinkStackTests, AnUpperLinkStandsOnTheOneThatIsListedForTheLinkBelow)
{
    using Row = std::tuple<const char*, Links, Stack>; // each link with what it is made on and its master
    for (const auto& [description, links, stack] :
         {Row{"adapters, a pair, one made on a link elsewhere", {{1, {}}, {2, {3, 0}}, {3, {2, 0}}, {4, {9, 0}}}, {}},
          Row{"a VLAN on a VLAN", {{2, {}}, {3, {2, 0}}, {4, {3, 0}}}, {{3, 2}, {4, 3}}},
          Row{"a VLAN of a bridge's port", {{2, {0, 5}}, {3, {2, 0}}, {5, {}}}, {{3, 5}}},
          Row{"a VLAN of a bond's port, the bond a bridge's",
              {{2, {0, 4}}, {3, {2, 0}}, {4, {0, 5}}, {5, {}}},
              {{3, 5}}},
          Row{"a bridge over a VLAN and a pair's end",
              {{2, {}}, {3, {2, 5}}, {5, {}}, {6, {7, 5}}, {7, {6, 0}}},
              {{5, 2}}},
          Row{"a bridge over VLANs of two adapters",
              {{2, {}}, {3, {}}, {4, {3, 7}}, {5, {2, 7}}, {6, {2, 7}}, {7, {}}},
              {{7, 2}, {7, 3}}},
          Row{"a bridge over a VLAN of its own port", {{2, {0, 5}}, {3, {2, 5}}, {5, {}}}, {}},
          Row{"masters in a ring, read while they changed", {{2, {3, 0}}, {3, {0, 4}}, {4, {0, 3}}}, {{2, 3}}}})
    {
        EXPECT_EQ(stack, FindStack(links)) << description;
    }
}
