#include <Serialization.Json/JSONArray.h>
#include <Serialization.Json/JSONObject.h>
#include <Tests/Support/CoreTest.h>

using namespace Zelkor::Serialization::Json;
using namespace std::string_literals;

namespace
{
using Row = std::tuple<std::string, std::string>;

std::string Printed(const std::string& text)
{
    return JSONObject(String(text)).ToString().Utf8();
}

std::string Nested(int levels)
{
    const auto count = static_cast<std::size_t>(levels);
    return std::string(count, '[') + std::string(count, ']');
}
} // namespace

TEST(JSONTextTests, AcceptsWhatSendersWrite)
{
    const Row rows[] = {{"{}", "{}"},
                        {"\x01\t\r\n {\x1F\"a\"\x02:\x03[\x04]\x05,\x06\"b\":{ } }", R"({"a":[],"b":{}})"},
                        {R"({"a":"b"} trailing)", R"({"a":"b"})"},
                        {R"({"a":"b"}{"c":)", R"({"a":"b"})"},
                        {"{\"a\":\"b\"}"s + std::string(2000, '\0') + "}", R"({"a":"b"})"},
                        {R"({"a":[null,true,false]})", R"({"a":[null,true,false]})"},
                        {R"({"A":"1","a":"2","A":"3"})", R"({"A":"1","a":"2","A":"3"})"},
                        {R"({"":""})", R"({"":""})"},
                        {"{\"a\":\"raw\ntab\t\x01 \xFF\xC3\"}", "{\"a\":\"raw\\ntab\\t\\u0001 \xFF\xC3\"}"},
                        {R"({"a":"]}[{\"]}"})", R"({"a":"]}[{\"]}"})"}};
    for (const auto& [text, printed] : rows)
    {
        EXPECT_EQ(printed, Printed(text)) << text;
    }
}

TEST(JSONTextTests, ReadsEscapesOfAnyKind)
{
    for (const auto& [text, printed] :
         {Row{R"(\b\f\n\r\t\"\\\/)", R"(\b\f\n\r\t\"\\/)"}, Row{R"(\x\'\ \-)", "x' -"},
          Row{R"(\u0041\u00e9\u4E2D\uFFFF)", "A\xC3\xA9\xE4\xB8\xAD\xEF\xBF\xBF"},
          Row{R"(\ud83d\ude00)", "\xF0\x9F\x98\x80"}, Row{R"(<\u0000>)", "<>"}, Row{R"(<\uDE00>)", "<>"},
          Row{R"(<\ud83d>)", "<>"}, Row{R"(<\ud83d\n>)", R"(<\n>)"}, Row{R"(<\ud83d\u0041>)", "<>"},
          Row{R"(<\ud83d\ud83d\ude00>)", R"(<>)"}, Row{R"(<\uZZZZ>)", "<>"}, Row{R"(\u0041bus)", "Abus"},
          Row{R"(\ud800\udc00\udbff\udfff)", "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"}, Row{R"(<\u-012>)", "<>"},
          Row{R"(\\u0000\\\x)", R"(\\u0000\\x)"}})
    {
        EXPECT_EQ(R"({")" + printed + R"(":")" + printed + R"("})",
                  Printed(R"({")" + text + R"(":")" + text + R"("})"));
    }
}

TEST(JSONTextTests, ReadsNumbersAndPrintsThemByTheirSize)
{
    EXPECT_EQ(R"({"n":[0,0,7,1000,1000,2147483647,-2147483648,2147483648,9007199254740992,1000000000000000000000]})",
              Printed(R"({"n":[0,-0,007,1e3,1E+3,2147483647,-2147483648,2147483648,9007199254740992,1e21]})"));
    EXPECT_EQ(R"({"n":[-1.500000,0.500000,-1,0.000001,1.000000e-07,1.234568e+09,999999999.500000,null]})",
              Printed(R"({"n":[-15e-1,0.5,-1.0000000000000002,0.000001,0.0000001,1234567890.5,999999999.5,1e999]})"));
    const std::string zeros(500, '0');
    const std::string nines(30, '9');
    EXPECT_EQ(R"({"n":[0.111111,null,0,0,null,0,null,0,7]})",
              Printed(R"({"n":[0.)" + std::string(100, '1') + ",-1" + zeros + ",0." + zeros + "1," + zeros +
                      "2e-400,0." + zeros + "1e+900,1" + zeros + "e-900,1" + zeros + "e" + nines + ",1" + zeros + "e-" +
                      nines + ",7" + zeros + "e-500]}"));
    const JSONArray huge(String("[1" + std::string(308, '0') + "]"));
    EXPECT_EQ(1e308, huge.GetDouble(0));
    EXPECT_EQ(1e308, JSONArray(huge).GetDouble(0)); // printed with 309 digits and read again
}

TEST(JSONTextTests, RefusesEverythingElse)
{
    const std::string values[] = {
        "'a'",        "a",       "tru",   "True",    "trueish",  "nul",       "+1",      ".5",
        "1.",         "1.e5",    "-",     "1-2",     "0x10",     "[1,]",      "[,1]",    "[1 2]",
        "{\"a\":1,}", "{\"a\"}", "{a:1}", "{'a':1}", "{1:2}",    "[",         "{",       "[}",
        "{]",         "\"",      "\"\\",  "\"\\\"",  "\"\\u\"",  "\"\\u12\"", "\"\\u12", "\"\\ud83d\\u12\"",
        "//x\n1",     "/*x*/1",  "",      "1\0"s,    "\"a\0b\""s};
    EXPECT_THROW(JSONArray(String("[" + std::string(70, '1') + "-1]")), FormatException);
    for (const std::string& value : values)
    {
        EXPECT_THROW(JSONObject(String("{\"k\":" + value + "}")), FormatException) << value;
    }
    for (const char* const text : {"", " ", "1", "\"a\"", "null", "[1]", "\xEF\xBB\xBF{}", "x{}", "}",
                                   R"({"k":"\u12\n"})", R"({"k":"\ud83d\u12\n"})"})
    {
        EXPECT_THROW(JSONObject{String(text)}, FormatException) << text;
    }
    ExpectEachThrows<FormatException>({[] { JSONArray(String("{}")); }, [] { JSONArray(String("[[]")); }});
    EXPECT_THROW(JSONObject(static_cast<const String&>(null)), ArgumentNullException);
    EXPECT_THROW(JSONArray(static_cast<const String&>(null)), ArgumentNullException);
}

TEST(JSONTextTests, NestingEndsAtAThousandLevelsWhichTheSmallestStackTakes)
{
    constexpr int smallestStack = 256 * 1024; // bytes
    const auto copy = +[] { EXPECT_EQ(Nested(1000), JSONArray(JSONArray(String(Nested(1000)))).ToString().Utf8()); };
    Threading::Thread thread(Threading::ThreadStart(copy), smallestStack);
    thread.Start();
    thread.Join();
    EXPECT_THROW(JSONArray(String(Nested(1001))), FormatException);
    EXPECT_THROW(JSONArray(String(std::string(65507, '['))), FormatException);

    JSONArray array;
    JSONObject object;
    EXPECT_THROW(array.Put(0, JSONArray(String(Nested(1000)))), FormatException);
    EXPECT_THROW(object.Put("a", JSONArray(String(Nested(1000)))), FormatException);
    array.Put(0, JSONArray(String(Nested(999))));
    EXPECT_EQ(Nested(1000), JSONArray(array).ToString().Utf8());
}
