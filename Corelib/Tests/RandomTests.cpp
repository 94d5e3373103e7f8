#include <Tests/Support/CoreTest.h>

#include <Core/System/Random.h>

#include <cmath>
#include <set>

using namespace Tesmo;
using namespace Tesmo::System;

TEST(RandomTests, ADrawHasFifteenBitsAndMayBeOne)
{
    Random random(1);
    std::set<double> seen;
    for (int i = 0; i < 1000000; ++i) // each of the 32768 values is missed with a chance of e^-30
    {
        const double sample = random.NextDouble();
        ASSERT_NEAR(std::round(sample * 32767), sample * 32767, 1e-9);
        seen.insert(sample);
    }
    EXPECT_EQ(32768U, seen.size());
    EXPECT_EQ(1.0, *seen.rbegin());
}

TEST(RandomTests, NumbersStayWithinTheirBoundsAndRepeatWithTheirSeed)
{
    Random random(2);
    std::set<int> seen;
    for (int i = 0; i < 1000; ++i)
    {
        seen.insert(random.Next(-2, 2));
    }
    EXPECT_TRUE(seen.contains(-1) && seen.contains(0) && seen.contains(1)); // the bounds themselves are rare
    EXPECT_TRUE(*seen.begin() >= -2 && *seen.rbegin() <= 2);
    EXPECT_EQ(5, random.Next(5, 5));
    random.Next(Int32::MinValue, Int32::MaxValue); // the distance does not fit an int
    EXPECT_THROW(random.Next(6, 5), ArgumentOutOfRangeException);

    Array<unsigned char> bytes(64);
    Random(42).NextBytes(bytes);
    EXPECT_LT(8U, std::set<unsigned char>(bytes.begin(), bytes.end()).size());
    const int number = Random(42).Next();
    EXPECT_EQ(number, Random(42).Next());
    EXPECT_NE(number, Random(43).Next());
}
