#include <Core/LogStream/LogStreamLevel.h>
#include <Core/System/EventArgs.h>
#include <Corelib/Tests/CoreTest.h>
#include <Serialization.Json/JSONStringer.h>

#include <functional>
#include <limits>

using namespace Tesmo;
using namespace Tesmo::System;
using namespace Tesmo::System::LogStreams;
using namespace Zelkor::Serialization::Json;

namespace
{
/// The text of an array that the calls fill.
std::string Elements(const std::function<void(JSONStringer&)>& calls)
{
    JSONStringer stringer;
    stringer.BeginArray();
    calls(stringer);
    return stringer.EndArray().ToString().Utf8();
}
} // namespace

TEST(JSONStringerTests, WritesDocumentsInTheOrderOfTheCalls)
{
    JSONStringer stringer;
    EXPECT_EQ("", stringer.ToString().Utf8());
    EXPECT_EQ("{}", stringer.BeginObject().EndObject().ToString().Utf8());

    stringer.BeginObject();
    stringer.Key("b").Value("1").Key("a").BeginArray().Value(true).Null().BeginObject().EndObject().EndArray();
    stringer.Key("b").BeginObject().Key("in").Value(1).EndObject();
    stringer.Value(2).Value(3); // the last inner key is still pending
    EXPECT_EQ(R"({"b":"1","a":[true,null,{}],"b":{"in":1},"in":2,"in":3})", stringer.EndObject().ToString().Utf8());

    EXPECT_EQ("[]", stringer.BeginArray().EndArray().ToString().Utf8()); // a second document replaces the first
}

TEST(JSONStringerTests, EscapesStringsAndKeysByByte)
{
    std::string text;
    std::string printed = "\"";
    for (int byte = 1; byte < 256; ++byte)
    {
        const auto c = static_cast<char>(byte);
        text += c;
        constexpr std::string_view special = "\"\\\b\t\n\f\r";
        constexpr std::string_view letters = "\"\\btnfr";
        char code[8] = {c, '\0'};
        if (const std::size_t found = special.find(c); found != std::string_view::npos)
        {
            std::snprintf(code, sizeof(code), "\\%c", letters[found]);
        }
        else if (byte < 0x20)
        {
            std::snprintf(code, sizeof(code), "\\u%04x", static_cast<unsigned>(byte));
        }
        printed += code;
    }
    printed += '"';
    JSONStringer stringer;
    stringer.BeginObject().Key(String(text)).Value(String(text)).EndObject();
    EXPECT_EQ("{" + printed + ":" + printed + "}", stringer.ToString().Utf8());
}

TEST(JSONStringerTests, WritesEachTypeInItsForm)
{
    EXPECT_EQ("[-1,4294967295,-4294967296,18446744073709551616]",
              Elements([](JSONStringer& s)
                       { s.Value(-1).Value(4294967295u).Value(std::int64_t{-4294967296}).Value(~std::uint64_t{0}); }));
    EXPECT_EQ("[0,0,-3,0.500000,1.000000e-07,-1.500000e+09,null,null]",
              Elements(
                  [](JSONStringer& s)
                  {
                      s.Value(0.0).Value(-0.0).Value(-3.0).Value(0.5).Value(1e-7).Value(-1.5e9 - 0.25);
                      s.Value(std::numeric_limits<double>::quiet_NaN());
                      s.Value(-std::numeric_limits<double>::infinity());
                  }));
    EXPECT_EQ(R"(["","",null])",
              Elements(
                  [](JSONStringer& s)
                  {
                      s.Value(static_cast<const String&>(null)).Value(static_cast<const char*>(nullptr));
                      s.Value(static_cast<const Object&>(null));
                  }));
    EXPECT_EQ(R"([1,2,3,4,true,"t",255,2.500000,1])",
              Elements(
                  [](JSONStringer& s)
                  {
                      s.Value(Int64(1)).Value(UInt64(2)).Value(Int32(3)).Value(UInt32(4)).Value(Boolean(true));
                      s.Value(static_cast<const Object&>(String("t"))).Value(LogStreamLevel()).Value(Double(2.5));
                      s.Value(LogStreamLevel::Critical);
                  }));
    EXPECT_THROW(Elements([](JSONStringer& s) { s.Value(EventArgs()); }), FormatException);
}

TEST(JSONStringerTests, CallsOutOfPlaceAreRefusedAndChangeNothing)
{
    JSONStringer stringer;
    EXPECT_THROW(stringer.Value(1), FormatException);
    EXPECT_THROW(stringer.Key("a"), FormatException);
    EXPECT_THROW(stringer.EndObject(), FormatException);

    stringer.BeginObject();
    EXPECT_THROW(stringer.Value(1), FormatException); // no key yet
    EXPECT_THROW(stringer.BeginArray(), FormatException);
    EXPECT_THROW(stringer.EndArray(), FormatException);
    EXPECT_THROW(stringer.ToString(), FormatException);
    EXPECT_THROW(stringer.Key(static_cast<const String&>(null)), ArgumentNullException);
    stringer.Key("a").BeginArray();
    EXPECT_THROW(stringer.Key("b"), FormatException);
    EXPECT_THROW(stringer.EndObject(), FormatException);
    EXPECT_EQ(R"({"a":[1]})", stringer.Value(1).EndArray().EndObject().ToString().Utf8());
}

TEST(JSONStringerTests, HoldsTwentyScopes)
{
    JSONStringer stringer;
    for (int i = 0; i < JSONStringer::MaxScopes; ++i)
    {
        stringer.BeginArray();
    }
    EXPECT_THROW(stringer.BeginArray(), FormatException);
    for (int i = 0; i < JSONStringer::MaxScopes; ++i)
    {
        stringer.EndArray();
    }
    EXPECT_EQ(std::string(20, '[') + std::string(20, ']'), stringer.ToString().Utf8());
}
