#include <Tests/Support/CoreTest.h>

#include <Core/System/Random.h>

#include <algorithm>
#include <cmath>
#include <set>

using namespace Tesmo;
using namespace Tesmo::System;

TEST(RandomTests, ADrawHasFifteenBitsAndMayBeOne)
{
    Random random(1);
    double smallest = 1;
    double largest = 0;
    for (int i = 0; i < 1000000; ++i) // each of the 32768 values is missed with a chance of e^-30
    {
        const double sample = random.Sample();
        ASSERT_NEAR(std::round(sample * 32767), sample * 32767, 1e-9);
        smallest = std::min(smallest, sample);
        largest = std::max(largest, sample);
    }
    EXPECT_EQ(0.0, smallest);
    EXPECT_EQ(1.0, largest);
}

TEST(RandomTests, NumbersStayWithinTheirBounds)
{
    Random random(2);
    std::set<int> seen;
    for (int i = 0; i < 1000; ++i)
    {
        seen.insert(random.Next(-2, 2));
    }
    EXPECT_GE(*seen.begin(), -2);
    EXPECT_LE(*seen.rbegin(), 2);
    EXPECT_GE(seen.size(), 3U);
    EXPECT_EQ(5, random.Next(5, 5));
    EXPECT_EQ(0, random.Next(0));
    EXPECT_GE(random.Next(), 0);
    random.Next(Int32::MinValue, Int32::MaxValue); // the distance does not fit an int
    EXPECT_THROW(random.Next(6, 5), ArgumentOutOfRangeException);
    EXPECT_THROW(random.Next(-1), ArgumentOutOfRangeException);
}

TEST(RandomTests, ASeedRepeatsItsNumbers)
{
    Array<unsigned char> first(64);
    Array<unsigned char> second(64);
    Random(42).NextBytes(first);
    Random(42).NextBytes(second);
    EXPECT_TRUE(std::equal(first.begin(), first.end(), second.begin()));
    EXPECT_TRUE(std::any_of(first.begin(), first.end(), [&](unsigned char byte) { return byte != first[0]; }));
    Array<unsigned char>& nothing = const_cast<Array<unsigned char>&>(static_cast<const Array<unsigned char>&>(null));
    EXPECT_THROW(Random(1).NextBytes(nothing), ArgumentNullException);
}
