#include "DatagramRoad.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

using namespace Zelkor::Discovery;

namespace
{
bool Take(const std::string& datagram)
{
    return TakeDatagram(reinterpret_cast<const unsigned char*>(datagram.data()), static_cast<int>(datagram.size()));
}
} // namespace

TEST(DatagramRoadTests, TheGoodSeedsAreMessages)
{
    int good = 0;
    for (const auto& entry : std::filesystem::directory_iterator(SEED_FOLDER))
    {
        SCOPED_TRACE(entry.path());
        std::ifstream file(entry.path(), std::ios::binary);
        const bool isGood = entry.path().filename().string().starts_with("good-");
        EXPECT_TRUE(Take({std::istreambuf_iterator<char>(file), {}}) || !isGood);
        good += isGood ? 1 : 0;
    }
    EXPECT_EQ(11, good);
}

TEST(DatagramRoadTests, TheLargestDatagramsAreTakenOrDropped)
{
    const std::string header = R"({"DiscoveryMessageType":"ChangeYourIPConfig","DiscoveryVersion":"1.0.23",)";
    const std::string bye = R"({"DiscoveryMessageType":"Bye","DiscoveryVersion":"1.0.23","Host":{"HostName":"",)"
                            R"("DeviceType":"","NICs":[],"Products":[)";
    const std::string record = R"({"ProductType":"","ProductSerialNumber":"","ProductVersion":"","ProductName":""})";
    struct Row
    {
        std::string opening;
        std::string element;
        std::string closing;
        bool isMessage;
    };
    for (const Row& row : {Row{header + R"("NewNICConfigs":[1)", ",1", "]}", true},
                           Row{header + R"("NewNICConfigs":[{})", ",{}", "]}", true},
                           Row{header + R"("NewNICConfigs":[],"x":0)", R"(,"x":0)", "}", true},
                           Row{bye + record, "," + record, "]}}", true}, Row{header, R"("Broadcast)", "", false},
                           Row{header + R"("NewNICConfigs":)", "[", "", false}})
    {
        SCOPED_TRACE(row.opening);
        std::string text = row.opening;
        while (text.size() + row.element.size() + row.closing.size() < 65507) // bytes of the largest datagram
        {
            text += row.element;
        }
        EXPECT_EQ(row.isMessage, Take(text + row.closing));
    }
}
