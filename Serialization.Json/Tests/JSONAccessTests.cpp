#include <Core/LogStream/LogStreamLevel.h>
#include <Core/System/EventArgs.h>
#include <Serialization.Json/JSONArray.h>
#include <Serialization.Json/JSONObject.h>
#include <Serialization.Json/JSONStringer.h>
#include <Tests/Support/CoreTest.h>

#include <cmath>
#include <random>

using namespace Tesmo::System::LogStreams;
using namespace Zelkor::Serialization::Json;

namespace
{
JSONObject Sample()
{
    return JSONObject(
        String(R"({"s":"text","n":2.5,"e":3,"t":true,"f":false,"z":null,"a":[1,"two"],"o":{"in":"side"}})"));
}

/// The texts of what objects of the classes take of a member, "-" where they take nothing.
template <class... Types>
std::string Filled(const char* key)
{
    std::string texts;
    const auto fill = [&](Object&& value)
    { texts += (Sample().TryGetValue(key, value) ? String(value.ToString()).Utf8() : "-") + ";"; };
    (fill(Types()), ...);
    return texts;
}

template <class T>
concept Goes = requires(JSONObject object, T value)
{
    object.Put("a", value);
}
|| requires(JSONStringer stringer, T value)
{
    stringer.Value(value);
};
static_assert(Goes<bool> && Goes<const char*> && !Goes<int*> && !Goes<String*>, "a pointer is no truth value");

template <class T>
T Tried(const JSONArray& array)
{
    T value = 0;
    EXPECT_TRUE(array.TryGetValue(0, value));
    return value;
}
} // namespace

TEST(JSONAccessTests, FetchesByKindAndNeverConverts)
{
    const JSONObject object = Sample();
    EXPECT_EQ("text", object.GetString("S").Utf8()); // names match without regard to case
    EXPECT_EQ(2.5, object.GetDouble("n"));
    EXPECT_TRUE(object.GetBoolean("t") && !object.GetBoolean("f"));
    EXPECT_EQ("side", object.GetJSONObject("o").GetString("in").Utf8());
    EXPECT_EQ("two", object.GetJSONArray("a").GetString(1).Utf8());
    EXPECT_TRUE(object.GetEnum<LogStreamLevel>("e") == LogStreamLevel(LogStreamLevel::Debug));

    ExpectEachThrows<ArgumentException>({[&] { object.GetString("n"); }, [&] { object.GetString("missing"); },
                                         [&] { object.GetInt32("t"); }, [&] { object.GetBoolean("z"); },
                                         [&] { object.GetJSONObject("a"); }, [&] { object.GetJSONArray("o"); }});
    EXPECT_THROW(object.GetString(static_cast<const String&>(null)), ArgumentNullException);

    EXPECT_EQ("text;-;-;-;-;", (Filled<String, Int32, Boolean, LogStreamLevel, JSONObject>("s")));
    EXPECT_EQ("-;2;2;2;2;2.5;-;-;", (Filled<String, Int32, UInt32, Int64, UInt64, Double, Boolean, EventArgs>("n")));
    EXPECT_EQ("3;Debug;", (Filled<Int32, LogStreamLevel>("e")));
    EXPECT_EQ("True;-;-;", (Filled<Boolean, Int32, String>("t")));
    EXPECT_EQ("False;-;", (Filled<Boolean, Int32>("f")));
    EXPECT_EQ(R"([1,"two"];-;)", (Filled<JSONArray, JSONObject>("a")));
    EXPECT_EQ(R"(-;{"in":"side"};)", (Filled<JSONArray, JSONObject>("o")));
    EXPECT_EQ("-;-;", Filled<Boolean>("z") + Filled<Double>("missing"));
}

TEST(JSONAccessTests, NumbersBecomeIntegersByTruncationWithinTheirRange)
{
    using Row = std::tuple<std::string, std::int32_t, std::uint32_t, std::int64_t, std::uint64_t>;
    constexpr auto low = Int32::MinValue;
    constexpr auto high = Int32::MaxValue;
    const Row rows[] = {{"2.9", 2, 2, 2, 2},
                        {"-2.9", -2, 0, -2, 0},
                        {"-2147483648", low, 0, low, 0},
                        {"2147483646", 2147483646, 2147483646u, 2147483646, 2147483646u},
                        {"2147483648", high, 2147483648u, 2147483648, 2147483648u},
                        {"4294967295", high, 4294967295u, 4294967295, 4294967295u},
                        {"-3000000000", low, 0, -3000000000, 0},
                        {"9007199254740992", high, UInt32::MaxValue, 9007199254740992, 9007199254740992u},
                        {"1e19", high, UInt32::MaxValue, Int64::MaxValue, 10000000000000000000u},
                        {"1e999", high, UInt32::MaxValue, Int64::MaxValue, UInt64::MaxValue},
                        {"-1" + std::string(400, '0'), low, 0, Int64::MinValue, 0}};
    for (const auto& [number, int32, uint32, int64, uint64] : rows)
    {
        SCOPED_TRACE(number);
        const JSONArray array(String("[" + number + "]"));
        EXPECT_TRUE(int32 == array.GetInt32(0) && int32 == Tried<std::int32_t>(array));
        EXPECT_TRUE(uint32 == array.GetUInt32(0) && uint32 == Tried<std::uint32_t>(array));
        EXPECT_TRUE(int64 == array.GetInt64(0) && int64 == Tried<std::int64_t>(array));
        EXPECT_TRUE(uint64 == array.GetUInt64(0) && uint64 == Tried<std::uint64_t>(array));
        EXPECT_EQ(array.GetDouble(0), Tried<double>(array));
        Int64 boxed;
        EXPECT_TRUE(array.TryGetValue(0, static_cast<Object&>(boxed)));
        EXPECT_EQ(std::int64_t{int32}, std::int64_t{boxed}); // the generic form is limited to 32 bits
    }
}

TEST(JSONAccessTests, OptGivesTheDefaultWhereTheKindIsAnother)
{
    const JSONObject object = Sample();
    EXPECT_TRUE(!object.OptBoolean("s") && object.OptBoolean("s", true) && object.OptBoolean("t"));
    EXPECT_TRUE(std::isnan(object.OptDouble("s")) && object.OptDouble("n") == 2.5);
    EXPECT_TRUE(object.OptInt32("s") == 0 && object.OptInt32("n", 7) == 2);
    EXPECT_TRUE(object.OptInt64("missing") == 0 && object.OptInt64("missing", -1) == -1 && object.OptInt64("n") == 2);
    EXPECT_EQ("", object.OptString("n").Utf8());
    EXPECT_EQ("default", object.OptString("n", "default").Utf8());
    EXPECT_EQ("text", object.OptString("s", "default").Utf8());
    EXPECT_EQ("{}", object.OptObject("a").ToString().Utf8());
    EXPECT_EQ(R"({"in":"side"})", object.OptObject("o").ToString().Utf8());
    EXPECT_EQ(R"({"in":"side"})", object.OptObject("o", JSONObject()).ToString().Utf8());
    EXPECT_EQ(object.ToString(), object.OptObject("a", object).ToString());
    EXPECT_THROW(object.OptString("s", static_cast<const String&>(null)), ArgumentNullException);
    EXPECT_THROW(object.OptObject("o", static_cast<const JSONObject&>(null)), ArgumentNullException);
    EXPECT_TRUE(object.IsNull("z") && object.IsNull("missing") && !object.IsNull("s"));
    EXPECT_TRUE(object.Has("z") && !object.Has("missing"));
}

TEST(JSONAccessTests, TheFirstOfEqualNamesCountsAndIsTakenAloneFromNoCopy)
{
    JSONObject object(String(R"({"A":"1","b":2.5,"c":true,"a":"2","d":4})"));
    EXPECT_EQ("1", object.GetString("a").Utf8());
    const Array<String> keys = object.GetKeys();
    ASSERT_EQ(5, keys.Length());
    EXPECT_EQ("A", keys[0].Utf8());
    EXPECT_EQ("a", keys[3].Utf8());

    const JSONObject copy(object);
    JSONObject assigned;
    assigned = object;
    String text;
    double number = 0;
    bool truth = false;
    std::int32_t integer = 5;
    EXPECT_TRUE(object.Take("a", text) && object.Take("b", number) && object.Take("c", truth));
    EXPECT_TRUE(text == "1" && number == 2.5 && truth);
    EXPECT_FALSE(object.Take("a", integer)); // of another kind: it stays
    EXPECT_EQ(5, integer);
    EXPECT_EQ(R"({"a":"2","d":4})", object.ToString().Utf8());
    EXPECT_TRUE(object.Take("d", integer));
    EXPECT_EQ(4, integer);
    EXPECT_EQ(1u, object.GetLength());
    EXPECT_EQ(R"({"A":"1","b":2.500000,"c":true,"a":"2","d":4})", copy.ToString().Utf8());
    const auto& itself = assigned;
    assigned = itself;
    EXPECT_EQ(copy.ToString(), assigned.ToString());
    EXPECT_THROW(assigned = static_cast<const JSONObject&>(null), ArgumentNullException);
    JSONObject whole(String(R"({"part":{"in":"side"},"b":1})"));
    EXPECT_TRUE(whole.Take("part", whole)); // into itself
    EXPECT_EQ(R"({"in":"side"})", whole.ToString().Utf8());
    EXPECT_EQ(0, JSONObject().GetKeys().Length());
}

TEST(JSONAccessTests, ACopyHoldsWhatIsReadFromThePrintedText)
{
    std::mt19937_64 bits;
    for (int i = 0; i < 2100; ++i)
    {
        JSONArray source(String(R"([{"k\u0001\"":"\u00e9\\","K":[null,true,[]]}])"));
        source.Put(0, static_cast<double>(bits()) * std::pow(10, i % 700 - 350)); // from 0 to infinity
        const JSONArray copy(source);
        const JSONArray read(source.ToString());
        EXPECT_EQ(read.OptDouble(0, 0.5), copy.OptDouble(0, 0.5));
        EXPECT_EQ(read.ToString(), copy.ToString());
    }
}

TEST(JSONAccessTests, PutAppendsValuesOfEveryClassWithAJSONForm)
{
    JSONObject object;
    object.Put("i", -1);
    object.Put("u", 4294967295u);
    object.Put("l", std::int64_t{-4294967296});
    object.Put("m", std::uint64_t{4294967296});
    object.Put("d", 0.25);
    object.Put("b", true);
    object.Put("c", "literal");
    object.Put("i", String("again"));
    object.Put("o", Sample().GetJSONObject("o"));
    object.Put("e", static_cast<const Object&>(LogStreamLevel(LogStreamLevel::Debug)));
    object.Put("n", static_cast<const Object&>(null));
    object.Put("p", static_cast<const char*>(nullptr));
    EXPECT_EQ(R"({"i":-1,"u":4294967295,"l":-4294967296,"m":4294967296,"d":0.250000,"b":true,"c":"literal",)"
              R"("i":"again","o":{"in":"side"},"e":3,"n":null,"p":null})",
              object.ToString().Utf8());
    EXPECT_THROW(object.Put("x", EventArgs()), FormatException);
    EXPECT_THROW(object.Put("x", static_cast<const JSONObject&>(null)), ArgumentNullException);
    EXPECT_THROW(object.Put(static_cast<const String&>(null), 1), ArgumentNullException);
    EXPECT_THROW(object.Put(static_cast<const String&>(null), true), ArgumentNullException);
    EXPECT_THROW(object.Put(static_cast<const String&>(null), "text"), ArgumentNullException);
    EXPECT_THROW(object.Put(static_cast<const String&>(null), object), ArgumentNullException);
    EXPECT_EQ(12u, object.GetLength());
}

TEST(JSONAccessTests, AnArrayIsReadAndChangedByIndex)
{
    JSONArray array(String("[10,11,12]"));
    EXPECT_TRUE(array.GetInt32(0) == 10 && array.GetInt32(2) == 12 && array.GetInt32(1) == 11);
    std::int32_t taken = 0;
    EXPECT_TRUE(array.Take(1, taken));
    EXPECT_EQ(12, array.GetInt32(1));
    array.Put(1, "between");
    array.Put(0, "first");
    array.Put(99, "last");
    EXPECT_EQ(R"(["first",10,"between",12,"last"])", array.ToString().Utf8());
    EXPECT_EQ(5, array.GetLength());
    EXPECT_EQ("last", array.GetString(4).Utf8());
    array.Put(1, JSONArray(String("[7]")));
    EXPECT_TRUE(array.Take(1, array));
    EXPECT_EQ("[7]", array.ToString().Utf8());
    EXPECT_EQ(7, array.GetInt32(0)); // nothing of the old document is remembered
    array = JSONArray(String("[2]"));
    EXPECT_EQ(2, array.GetInt32(0));

    ExpectEachThrows<ArgumentOutOfRangeException>({[&] { array.GetInt32(1); }, [&] { array.GetInt32(-1); },
                                                   [&] { array.GetString(0); }, [&] { array.Put(-1, 0); }});
    EXPECT_THROW(array = static_cast<const JSONArray&>(null), ArgumentNullException);
}

TEST(JSONAccessTests, AFailureNamesThePlaceOfTheCall)
{
    EXPECT_EQ(String(__FILE__), FailureOf([] { Sample().GetString("missing"); }).File());
}
