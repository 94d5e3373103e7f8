#include <Core/LogStream/LogStreamLevel.h>
#include <Core/System/EventArgs.h>
#include <Serialization.Json/JSONArray.h>
#include <Serialization.Json/JSONObject.h>
#include <Tests/Support/CoreTest.h>

#include <cmath>

using namespace Tesmo;
using namespace Tesmo::System;
using namespace Tesmo::System::LogStreams;
using namespace Zelkor::Serialization::Json;

namespace
{
JSONObject Sample()
{
    return JSONObject(String(R"({"s":"text","n":1e3,"t":true,"z":null,"a":[1,"two"],"o":{"in":"side"}})"));
}

template <class T>
bool Fills(const char* key, T value)
{
    return Sample().TryGetValue(key, static_cast<Object&>(value));
}
} // namespace

TEST(JSONAccessTests, FetchesByKindAndNeverConverts)
{
    const JSONObject object = Sample();
    EXPECT_EQ("text", object.GetString("S").Utf8()); // names match without regard to case
    EXPECT_EQ(1000, object.GetInt32("n"));
    EXPECT_TRUE(object.GetBoolean("t"));
    EXPECT_EQ("side", object.GetJSONObject("o").GetString("in").Utf8());
    EXPECT_EQ("two", object.GetJSONArray("a").GetString(1).Utf8());
    EXPECT_TRUE(object.GetEnum<LogStreamLevel>("n") == LogStreamLevel(1000));

    EXPECT_THROW(object.GetString("n"), ArgumentException);
    EXPECT_THROW(object.GetString("missing"), ArgumentException);
    EXPECT_THROW(object.GetInt32("t"), ArgumentException);
    EXPECT_THROW(object.GetBoolean("z"), ArgumentException);
    EXPECT_THROW(object.GetJSONObject("a"), ArgumentException);
    EXPECT_THROW(object.GetJSONArray("o"), ArgumentException);
    EXPECT_THROW(object.GetString(static_cast<const String&>(null)), ArgumentNullException);

    EXPECT_TRUE(Fills("s", String()) && Fills("n", Int32()) && Fills("n", UInt32()) && Fills("n", Int64()) &&
                Fills("n", UInt64()) && Fills("n", Double()) && Fills("n", LogStreamLevel()) && Fills("t", Boolean()) &&
                Fills("a", JSONArray()) && Fills("o", JSONObject()));
    EXPECT_FALSE(Fills("n", String()) || Fills("s", Boolean()) || Fills("t", Int32()) || Fills("z", String()) ||
                 Fills("a", JSONObject()) || Fills("o", JSONArray()) || Fills("n", EventArgs()) ||
                 Fills("missing", String()));
}

TEST(JSONAccessTests, NumbersBecomeIntegersByTruncationWithinTheirRange)
{
    using Row = std::tuple<const char*, std::int32_t, std::uint32_t, std::int64_t, std::uint64_t>;
    constexpr auto low = Int32::MinValue;
    constexpr auto high = Int32::MaxValue;
    const Row rows[] = {
        {"2.9", 2, 2, 2, 2},
        {"-2.9", -2, 0, -2, 0},
        {"4294967295", high, 4294967295u, 4294967295, 4294967295u},
        {"-3000000000", low, 0, -3000000000, 0},
        {"9007199254740992", high, UInt32::MaxValue, 9007199254740992, 9007199254740992u},
        {"1e19", high, UInt32::MaxValue, Int64::MaxValue, 10000000000000000000u},
        {"1e999", high, UInt32::MaxValue, Int64::MaxValue, UInt64::MaxValue},
        {"-1e999", low, 0, Int64::MinValue, 0},
    };
    for (const auto& [number, int32, uint32, int64, uint64] : rows)
    {
        SCOPED_TRACE(number);
        const JSONArray array(String("[" + std::string(number) + "]"));
        EXPECT_EQ(int32, array.GetInt32(0));
        EXPECT_EQ(uint32, array.GetUInt32(0));
        EXPECT_EQ(int64, array.GetInt64(0));
        EXPECT_EQ(uint64, array.GetUInt64(0));
        Int64 boxed;
        EXPECT_TRUE(array.TryGetValue(0, static_cast<Object&>(boxed)));
        EXPECT_EQ(std::int64_t{int32}, std::int64_t{boxed}); // the generic form is limited to 32 bits
    }
}

TEST(JSONAccessTests, OptGivesTheDefaultWhereTheKindIsAnother)
{
    const JSONObject object = Sample();
    EXPECT_FALSE(object.OptBoolean("s"));
    EXPECT_TRUE(object.OptBoolean("s", true));
    EXPECT_TRUE(std::isnan(object.OptDouble("s")));
    EXPECT_EQ(1000, object.OptDouble("n"));
    EXPECT_EQ(0, object.OptInt32("s"));
    EXPECT_EQ(-1, object.OptInt64("missing", -1));
    EXPECT_EQ("", object.OptString("n").Utf8());
    EXPECT_EQ("default", object.OptString("n", "default").Utf8());
    EXPECT_EQ("{}", object.OptObject("a").ToString().Utf8());
    EXPECT_EQ(R"({"in":"side"})", object.OptObject("o", JSONObject()).ToString().Utf8());
    EXPECT_THROW(object.OptString("s", static_cast<const String&>(null)), ArgumentNullException);
    EXPECT_THROW(object.OptObject("o", static_cast<const JSONObject&>(null)), ArgumentNullException);
    EXPECT_TRUE(object.IsNull("z") && object.IsNull("missing") && !object.IsNull("s"));
    EXPECT_TRUE(object.Has("z") && !object.Has("missing"));
}

TEST(JSONAccessTests, TheFirstOfEqualNamesCountsAndAllStay)
{
    JSONObject object(String(R"({"A":"1","b":"x","a":"2"})"));
    EXPECT_EQ("1", object.GetString("a").Utf8());
    const Array<String> keys = object.GetKeys();
    ASSERT_EQ(3, keys.Length());
    EXPECT_EQ("A", keys[0].Utf8());
    EXPECT_EQ("a", keys[2].Utf8());

    String taken;
    EXPECT_TRUE(object.Take("a", taken));
    EXPECT_EQ("1", taken.Utf8());
    std::int32_t number = 5;
    EXPECT_FALSE(object.Take("a", number)); // of another kind: it stays
    EXPECT_EQ(5, number);
    EXPECT_EQ(R"({"b":"x","a":"2"})", object.ToString().Utf8());
    JSONObject whole(String(R"({"part":{"in":"side"},"b":1})"));
    EXPECT_TRUE(whole.Take("part", whole)); // into itself
    EXPECT_EQ(R"({"in":"side"})", whole.ToString().Utf8());
    EXPECT_EQ(0, JSONObject().GetKeys().Length());
}

TEST(JSONAccessTests, PutAppendsValuesOfEveryClassWithAJSONForm)
{
    JSONObject object;
    object.Put("i", -1);
    object.Put("u", 4294967295u);
    object.Put("l", std::int64_t{-4294967296});
    object.Put("d", 0.25);
    object.Put("b", true);
    object.Put("c", "literal");
    object.Put("i", String("again"));
    object.Put("o", Sample().GetJSONObject("o"));
    object.Put("e", static_cast<const Object&>(LogStreamLevel(LogStreamLevel::Debug)));
    object.Put("n", static_cast<const Object&>(null));
    object.Put("p", static_cast<const char*>(nullptr));
    EXPECT_EQ(R"({"i":-1,"u":4294967295,"l":-4294967296,"d":0.250000,"b":true,"c":"literal","i":"again",)"
              R"("o":{"in":"side"},"e":3,"n":null,"p":null})",
              object.ToString().Utf8());
    EXPECT_EQ(11u, object.GetLength());
    EXPECT_THROW(object.Put("x", EventArgs()), FormatException);
    EXPECT_THROW(object.Put(static_cast<const String&>(null), 1), ArgumentNullException);
}

TEST(JSONAccessTests, AnArrayIsReadAndChangedByIndex)
{
    JSONArray array(String("[10,11,12]"));
    EXPECT_EQ(12, array.GetInt32(2));
    EXPECT_EQ(10, array.GetInt32(0));
    std::int32_t taken = 0;
    EXPECT_TRUE(array.Take(1, taken));
    EXPECT_EQ(12, array.GetInt32(1));
    array.Put(0, "first");
    array.Put(99, "last");
    EXPECT_EQ(R"(["first",10,12,"last"])", array.ToString().Utf8());
    EXPECT_EQ(4, array.GetLength());
    EXPECT_EQ("last", array.GetString(3).Utf8());
    EXPECT_THROW(array.GetInt32(0), ArgumentOutOfRangeException);
    array.Put(1, JSONArray(String("[7]")));
    EXPECT_TRUE(array.Take(1, array));
    EXPECT_EQ("[7]", array.ToString().Utf8());
    EXPECT_EQ(7, array.GetInt32(0));

    EXPECT_THROW(array.GetInt32(4), ArgumentOutOfRangeException);
    EXPECT_THROW(array.GetInt32(-1), ArgumentOutOfRangeException);
    EXPECT_THROW(array.Put(-1, 0), ArgumentOutOfRangeException);
}

TEST(JSONAccessTests, CopiesShareNothing)
{
    JSONObject source = Sample();
    const JSONObject copy(source);
    JSONObject assigned;
    assigned = source;
    const auto& itself = assigned;
    assigned = itself;
    bool taken = false;
    source.Take("t", taken);
    EXPECT_EQ(Sample().ToString(), copy.ToString());
    EXPECT_EQ(Sample().ToString(), assigned.ToString());
    JSONArray array(String("[1]"));
    EXPECT_EQ(1, array.GetInt32(0));
    array = JSONArray(String("[2]"));
    EXPECT_EQ(2, array.GetInt32(0)); // nothing of the old document is remembered
    EXPECT_THROW(assigned = static_cast<const JSONObject&>(null), ArgumentNullException);
    EXPECT_THROW(array = static_cast<const JSONArray&>(null), ArgumentNullException);
}

TEST(JSONAccessTests, AWalkByIndexOverALargeArrayIsLinear)
{
    constexpr int count = 500'000; // 125 billion steps if each look-up began anew
    std::string text = "[1";
    for (int i = 1; i < count; ++i)
    {
        text += ",1";
    }
    const JSONArray array{String(text + "]")};
    int sum = 0;
    for (int i = 0; i < count; ++i)
    {
        sum += array.GetInt32(i);
    }
    EXPECT_EQ(count, sum);
}
