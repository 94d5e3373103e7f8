#include "DatagramMutator.h"
#include "DatagramRoad.h"
#include "LiveMemory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

using namespace Zelkor::Discovery;

namespace
{
/// The good datagrams of the seed corpus, in the order of their names.
std::vector<std::string> GoodDatagrams()
{
    std::vector<std::filesystem::path> paths;
    for (const auto& entry : std::filesystem::directory_iterator(SEED_FOLDER))
    {
        if (entry.path().filename().string().starts_with("good-"))
        {
            paths.push_back(entry.path());
        }
    }
    std::sort(paths.begin(), paths.end());
    std::vector<std::string> datagrams;
    for (const std::filesystem::path& path : paths)
    {
        std::ifstream file(path, std::ios::binary);
        datagrams.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    return datagrams;
}

bool Take(const std::string& datagram)
{
    return TakeDatagram(reinterpret_cast<const unsigned char*>(datagram.data()), static_cast<int>(datagram.size()));
}

/// How many of the datagrams were read as messages.
int Storm(unsigned seed, int count)
{
    DatagramMutator mutator(GoodDatagrams(), seed);
    int messages = 0;
    for (int i = 0; i < count; ++i)
    {
        messages += Take(mutator.Next()) ? 1 : 0;
    }
    return messages;
}
} // namespace

TEST(DatagramStormTests, TheSeedsAreMessages)
{
    const std::vector<std::string> datagrams = GoodDatagrams();
    EXPECT_EQ(10u, datagrams.size());
    EXPECT_TRUE(std::all_of(datagrams.begin(), datagrams.end(), Take));
}

TEST(DatagramStormTests, TwoHundredThousandDatagramsDoNoHarmAndLeaveNothing)
{
    constexpr int datagrams = 200'000;
    constexpr int warmUp = 2'000; // name tables and the like are built on first use
    Storm(1, warmUp);
    const long blocks = LiveBlocks();

    const int messages = Storm(2, datagrams);

    EXPECT_EQ(blocks, LiveBlocks());
    EXPECT_GT(messages, datagrams / 20); // the storm gets past the first check,
    EXPECT_LT(messages, datagrams / 2);  // and most of it is bad
}

TEST(DatagramStormTests, TheLargestDatagramsAreTakenOrDropped)
{
    const std::string header = R"({"DiscoveryMessageType":"ChangeYourIPConfig","DiscoveryVersion":"1.0.23",)";
    const std::string record = R"({"ProductType":"","ProductSerialNumber":"","ProductVersion":"","ProductName":""})";
    const auto filled = [&](const std::string& opening, const std::string& element, const std::string& closing)
    {
        std::string text = opening[0] == '{' ? opening : header + opening;
        while (text.size() + element.size() + closing.size() < 65507)
        {
            text += element;
        }
        return text + closing;
    };
    EXPECT_TRUE(Take(filled(R"("NewNICConfigs":[1)", ",1", "]}")));
    EXPECT_TRUE(Take(filled(R"("NewNICConfigs":[{})", ",{}", "]}")));
    EXPECT_TRUE(Take(filled(R"("NewNICConfigs":[],"x":0)", R"(,"x":0)", "}")));
    EXPECT_TRUE(Take(filled(R"({"DiscoveryMessageType":"Bye","DiscoveryVersion":"1.0.23","Host":{"HostName":"",)"
                            R"("DeviceType":"","NICs":[],"Products":[)" +
                                record,
                            "," + record, "]}}")));
    EXPECT_FALSE(Take(filled("", R"("Broadcast)", "")));
    EXPECT_FALSE(Take(filled(R"("NewNICConfigs":)", "[", "")));
}
