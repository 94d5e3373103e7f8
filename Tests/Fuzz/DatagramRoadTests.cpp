#include "DatagramRoad.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

using namespace Zelkor::Discovery;

TEST(DatagramRoadTests, TheGoodSeedsAreMessages)
{
    int good = 0;
    for (const auto& entry : std::filesystem::directory_iterator(SEED_FOLDER))
    {
        SCOPED_TRACE(entry.path());
        std::ifstream file(entry.path(), std::ios::binary);
        const std::vector<char> bytes(std::istreambuf_iterator<char>(file), {});
        const bool isGood = entry.path().filename().string().starts_with("good-");
        EXPECT_TRUE(
            TakeDatagram(reinterpret_cast<const unsigned char*>(bytes.data()), static_cast<int>(bytes.size())) ||
            !isGood);
        good += isGood ? 1 : 0;
    }
    EXPECT_EQ(11, good);
}
