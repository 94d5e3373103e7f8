#include <Core/System/ArgumentNullException.h>
#include <Core/System/FormatException.h>
#include <Core/System/Threading/Thread.h>
#include <Serialization.Json/JSONArray.h>
#include <Serialization.Json/JSONObject.h>

#include <gtest/gtest.h>

#include <string>

using namespace Tesmo;
using namespace Tesmo::System;
using namespace Zelkor::Serialization::Json;
using namespace std::string_literals;

namespace
{
struct Row
{
    std::string text;
    std::string printed;
};

std::string Printed(const std::string& text)
{
    return JSONObject(String(text)).ToString().Utf8();
}

std::string Nested(int levels)
{
    const auto count = static_cast<std::size_t>(levels);
    return std::string(count, '[') + std::string(count, ']');
}

std::string deepestDocument;

void CopyDeepestDocument()
{
    deepestDocument = JSONArray(JSONArray(String(Nested(1000)))).ToString().Utf8();
}
} // namespace

TEST(JSONTextTests, AcceptsWhatSendersWrite)
{
    const Row rows[] = {
        {"{}", "{}"},
        {"\x01\t\r\n {\x1F\"a\"\x02:\x03[\x04]\x05,\x06\"b\":{ } }", R"({"a":[],"b":{}})"},
        {R"({"a":"b"} trailing)", R"({"a":"b"})"},
        {R"({"a":"b"}{"c":)", R"({"a":"b"})"},
        {"{\"a\":\"b\"}"s + std::string(2000, '\0') + "}", R"({"a":"b"})"},
        {R"({"a":[null,true,false]})", R"({"a":[null,true,false]})"},
        {R"({"A":"1","a":"2","A":"3"})", R"({"A":"1","a":"2","A":"3"})"},
        {R"({"":""})", R"({"":""})"},
        {"{\"a\":\"raw\ntab\t\x01 \xFF\xC3\"}", "{\"a\":\"raw\\ntab\\t\\u0001 \xFF\xC3\"}"},
        {R"({"a":"]}[{\"]}"})", R"({"a":"]}[{\"]}"})"},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(row.printed, Printed(row.text));
    }
}

TEST(JSONTextTests, ReadsEscapesOfAnyKind)
{
    const Row rows[] = {
        {R"(\b\f\n\r\t\"\\\/)", R"(\b\f\n\r\t\"\\/)"},
        {R"(\x\'\ \-)", "x' -"},
        {R"(\u0041\u00e9\u4E2D\uFFFF)", "A\xC3\xA9\xE4\xB8\xAD\xEF\xBF\xBF"},
        {R"(\ud83d\ude00)", "\xF0\x9F\x98\x80"},
        {R"(<\u0000>)", "<>"},
        {R"(<\uDE00>)", "<>"},
        {R"(<\ud83d>)", "<>"},
        {R"(<\ud83d\n>)", R"(<\n>)"},
        {R"(<\ud83d\u0041>)", "<>"},
        {R"(<\ud83d\ud83d\ude00>)", R"(<>)"},
        {R"(<\uZZZZ>)", "<>"},
        {R"(<\u-012>)", "<>"},
        {R"(\\u0000\\\x)", R"(\\u0000\\x)"},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(R"({")" + row.printed + R"(":")" + row.printed + R"("})",
                  Printed(R"({")" + row.text + R"(":")" + row.text + R"("})"));
    }
}

TEST(JSONTextTests, ReadsNumbersAndPrintsThemByTheirSize)
{
    const Row rows[] = {
        {"0", "0"},
        {"-0", "0"},
        {"007", "7"},
        {"1e3", "1000"},
        {"1E+3", "1000"},
        {"-15e-1", "-1.500000"},
        {"2147483647", "2147483647"},
        {"-2147483648", "-2147483648"},
        {"2147483648", "2147483648"},
        {"9007199254740992", "9007199254740992"},
        {"1e21", "1000000000000000000000"},
        {"0.5", "0.500000"},
        {"0.0000001", "1.000000e-07"},
        {"1234567890.5", "1.234568e+09"},
        {"999999999.5", "999999999.500000"},
        {"1e999", "null"},
        {"0." + std::string(100, '1'), "0.111111"},
        {"-1" + std::string(400, '0'), "null"},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.text);
        EXPECT_EQ("{\"n\":[" + row.printed + "]}", Printed("{\"n\":[" + row.text + "]}"));
    }
    const JSONArray huge(String("[1" + std::string(308, '0') + "]"));
    EXPECT_EQ(1e308, huge.GetDouble(0));
    EXPECT_EQ(1e308, JSONArray(huge).GetDouble(0)); // printed with 309 digits and read again
}

TEST(JSONTextTests, RefusesEverythingElse)
{
    const std::string values[] = {"'a'",        "a",
                                  "tru",        "True",
                                  "trueish",    "nul",
                                  "+1",         ".5",
                                  "1.",         "1.e5",
                                  "-",          "1-2",
                                  "0x10",       "[1,]",
                                  "[,1]",       "[1 2]",
                                  "{\"a\":1,}", "{\"a\"}",
                                  "{a:1}",      "{'a':1}",
                                  "{1:2}",      "[",
                                  "{",          "[}",
                                  "{]",         "\"",
                                  "\"\\",       "\"\\\"",
                                  "\"\\u\"",    "\"\\u12\"",
                                  "\"\\u12",    "\"\\ud83d\\u12\"",
                                  "//x\n1",     "/*x*/1",
                                  "",           "1\0"s,
                                  "\"a\0b\""s,  std::string(70, '1') + "-1"};
    for (const std::string& value : values)
    {
        SCOPED_TRACE(value);
        EXPECT_THROW(JSONObject(String("{\"k\":" + value + "}")), FormatException);
    }
    for (const char* const text : {"", " ", "1", "\"a\"", "null", "[1]", "\xEF\xBB\xBF{}", "x{}", "}"})
    {
        SCOPED_TRACE(text);
        EXPECT_THROW(JSONObject{String(text)}, FormatException);
    }
    EXPECT_THROW(JSONArray(String("{}")), FormatException);
    EXPECT_THROW(JSONArray(String("[[]")), FormatException);
    EXPECT_THROW(JSONObject(static_cast<const String&>(null)), ArgumentNullException);
    EXPECT_THROW(JSONArray(static_cast<const String&>(null)), ArgumentNullException);
}

TEST(JSONTextTests, NestingEndsAtAThousandLevels)
{
    EXPECT_EQ(Nested(1000), JSONArray(String(Nested(1000))).ToString().Utf8());
    EXPECT_THROW(JSONArray(String(Nested(1001))), FormatException);
    EXPECT_THROW(JSONArray(String(std::string(65507, '['))), FormatException);
}

TEST(JSONTextTests, TheSmallestStackTakesTheDeepestDocument)
{
    constexpr int smallestStack = 256 * 1024; // bytes
    Threading::Thread thread(Threading::ThreadStart(&CopyDeepestDocument), smallestStack);
    thread.Start();
    thread.Join();
    EXPECT_EQ(Nested(1000), deepestDocument);
}
