#include "DatagramRoad.h"
#include "LiveMemory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

using namespace std::string_view_literals;
using namespace Zelkor::Discovery;

namespace
{
constexpr std::size_t LargestDatagram = 65507; // bytes; 65535 less the headers of RFC 791 and RFC 768
constexpr std::size_t MostChanges = 6;

/// What JSON text and the protocol's values are made of, and what breaks them, parted by blanks.
constexpr std::string_view TokenTexts =
    R"({ } [ ] , : " \ \u0000 \ud83d \udc00 \uZZZZ \x )"
    "\0 \xFF \x01 "
    R"(null true 1e999 -1e999 0.1e-320 1. 007 {"":""} [[[[[[[[[[ {} [1,2,{}] "True" "False" "Hello" "Bye" )"
    R"("Host": "NICs": "a":1, "a":" 255.255.255.255 0:0:0:0:0:0:0:1%5 1:2:3:4:5:6:7:8 FF:FF %n%s)"sv;

std::vector<std::string> Tokens()
{
    std::istringstream texts{std::string(TokenTexts)};
    return {std::istream_iterator<std::string>(texts), {}};
}

/// Makes datagrams out of good ones: the same series for the same seed on every platform.
class DatagramMutator
{
public:
    DatagramMutator(std::vector<std::string> goodOnes, unsigned seed) : samples(std::move(goodOnes)), engine(seed) {}

    /// A changed good one, or, one time in ten, bytes without sense.
    std::string Next();

private:
    std::size_t Below(std::size_t limit);
    std::string Noise(std::size_t size);
    void Change(std::string& text);

    const std::vector<std::string> tokens = Tokens();
    const std::vector<std::string> samples;
    std::mt19937 engine;
};

std::string DatagramMutator::Next()
{
    constexpr std::size_t longestNoise = 300;
    if (Below(10) == 0)
    {
        return Noise(Below(longestNoise));
    }
    std::string text = samples[Below(samples.size())];
    for (std::size_t changes = Below(MostChanges + 1); changes > 0; --changes)
    {
        Change(text);
    }
    text.resize(std::min(text.size(), LargestDatagram));
    return text;
}

/// The distributions of the standard library differ from platform to platform.
std::size_t DatagramMutator::Below(std::size_t limit)
{
    return engine() % limit;
}

std::string DatagramMutator::Noise(std::size_t size)
{
    std::string noise(size, '\0');
    std::generate(noise.begin(), noise.end(), [this] { return static_cast<char>(engine()); });
    return noise;
}

void DatagramMutator::Change(std::string& text)
{
    constexpr std::size_t mostRepeats = 300;
    const std::size_t position = Below(text.size() + 1);
    const std::size_t length = Below(std::min<std::size_t>(text.size() - position, 40) + 1);
    const std::string& token = tokens[Below(tokens.size())];
    switch (Below(8))
    {
    case 0:
        text.insert(position, Noise(1));
        break;
    case 1:
        text.replace(position, length, token);
        break;
    case 2:
        text.insert(position, token);
        break;
    case 3:
        text.erase(position, length);
        break;
    case 4:
        text.insert(position, text.substr(position, length));
        break;
    case 5:
        text.resize(position);
        break;
    case 6:
    {
        const std::string& other = samples[Below(samples.size())];
        text.replace(position, length, other.substr(Below(other.size() + 1)));
        break;
    }
    default:
        for (std::size_t repeats = Below(mostRepeats); repeats > 0; --repeats)
        {
            text.insert(position, token);
        }
    }
}

/// The good datagrams of the seed corpus, in the order of their names.
std::vector<std::string> GoodDatagrams()
{
    std::set<std::filesystem::path> paths;
    for (const auto& entry : std::filesystem::directory_iterator(SEED_FOLDER))
    {
        if (entry.path().filename().string().starts_with("good-"))
        {
            paths.insert(entry.path());
        }
    }
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
        while (text.size() + element.size() + closing.size() < LargestDatagram)
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
