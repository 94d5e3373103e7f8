#include <Tests/Support/CoreTest.h>

#include <Core/System/Random.h>

TEST(RandomTests, ADrawHasFifteenBitsAndMayBeOne)
{
    Random random(1);
    std::set<double> seen;
    for (int i = 0; i < 1000000; ++i) // each of the 32768 values is missed with a chance of e^-30
    {
        seen.insert(random.NextDouble() * 32767);
    }
    EXPECT_EQ(32768U, seen.size());
    EXPECT_TRUE(*seen.begin() == 0.0 && *seen.rbegin() == 32767.0);
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
    EXPECT_TRUE(*seen.begin() >= -2 && *seen.rbegin() <= 2 && random.Next(5, 5) == 5);
    random.Next(Int32::MinValue, Int32::MaxValue); // the distance does not fit an int
    EXPECT_TRUE(random.Next(0) == 0 && Random(7).Next(1000) == Random(7).Next(0, 1000));
    EXPECT_TRUE(random.Equals(random) && !random.Equals(Random(2)));
    EXPECT_EQ("Tesmo::System::Random", random.ToString().Utf8());
    EXPECT_THROW(random.Next(6, 5), ArgumentOutOfRangeException);

    Array<unsigned char> bytes(64);
    Random(42).NextBytes(bytes);
    EXPECT_LT(8U, std::set<unsigned char>(bytes.begin(), bytes.end()).size());
    EXPECT_TRUE(Random(42).Next() == Random(42).Next() && Random(42).Next() != Random(43).Next());
}
