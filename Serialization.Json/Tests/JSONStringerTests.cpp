#include <Core/LogStream/LogStreamLevel.h>
#include <Core/System/EventArgs.h>
#include <Core/System/Net/Sockets/AddressFamily.h>
#include <Serialization.Json/IJSONSerializer.h>
#include <Serialization.Json/JSONStringer.h>
#include <Tests/Support/CoreTest.h>

using namespace Tesmo::System::LogStreams;
using namespace Zelkor::Serialization::Json;

namespace
{
/// The text of an array of values.
template <class... Types>
std::string Elements(const Types&... values)
{
    JSONStringer stringer;
    stringer.BeginArray();
    (stringer.Value(values), ...);
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

    EXPECT_EQ("[]", stringer.BeginArray().EndArray().TakeText().Utf8()); // a second document replaces the first
}

TEST(JSONStringerTests, EscapesStringsAndKeysByByte)
{
    std::string text;
    std::string printed =
        R"("\u0001\u0002\u0003\u0004\u0005\u0006\u0007\b\t\n\u000b\f\r\u000e\u000f)"
        R"(\u0010\u0011\u0012\u0013\u0014\u0015\u0016\u0017\u0018\u0019\u001a\u001b\u001c\u001d\u001e\u001f)";
    for (int byte = 1; byte < 256; ++byte)
    {
        const auto c = static_cast<char>(byte);
        text += c;
        printed += c == '"' || c == '\\' ? std::string{'\\', c} : byte < ' ' ? std::string() : std::string{c};
    }
    printed += '"';
    JSONStringer stringer;
    stringer.BeginObject().Key(String(text)).Value(String(text)).EndObject();
    EXPECT_EQ("{" + printed + ":" + printed + "}", stringer.ToString().Utf8());
}

TEST(JSONStringerTests, WritesEachTypeInItsForm)
{
    EXPECT_EQ("[-1,4294967295,-4294967296,18446744073709551616,0.500000,null,null]",
              Elements(-1, 4294967295u, std::int64_t{-4294967296}, ~std::uint64_t{0}, 0.5, Double::NaN,
                       Double::NegativeInfinity));
    EXPECT_EQ(R"(["","",null])", Elements(static_cast<const String&>(null), static_cast<const char*>(nullptr),
                                          static_cast<const Object&>(null)));
    EXPECT_EQ(R"([1,2,3,4,true,"t",255,2.500000,1,23])",
              Elements(Int64(1), UInt64(2), Int32(3), UInt32(4), Boolean(true), static_cast<const Object&>(String("t")),
                       LogStreamLevel(), Double(2.5), LogStreamLevel::Critical,
                       Net::Sockets::AddressFamily(Net::Sockets::AddressFamily::InterNetworkV6)));
    EXPECT_THROW(Elements(EventArgs()), FormatException);
}

TEST(JSONStringerTests, CallsOutOfPlaceAreRefusedAndChangeNothing)
{
    JSONStringer stringer;
    ExpectEachThrows<FormatException>(
        {[&] { stringer.Value(1); }, [&] { stringer.Key("a"); }, [&] { stringer.EndObject(); }});

    stringer.BeginObject();
    EXPECT_THROW(stringer.Value(1), FormatException); // no key yet
    ExpectEachThrows<FormatException>({[&] { stringer.BeginArray(); }, [&] { stringer.EndArray(); },
                                       [&] { stringer.ToString(); }, [&] { stringer.TakeText(); }});
    EXPECT_THROW(stringer.Key(static_cast<const String&>(null)), ArgumentNullException);
    stringer.Key("a").BeginArray();
    ExpectEachThrows<FormatException>({[&] { stringer.Key("b"); }, [&] { stringer.EndObject(); }});
    EXPECT_EQ(R"({"a":[1]})", stringer.Value(1).EndArray().EndObject().ToString().Utf8());

    for (int scope = 0; scope < 20; ++scope)
    {
        stringer.BeginArray();
    }
    EXPECT_THROW(stringer.BeginArray(), FormatException);
}

TEST(JSONStringerTests, ASerializerGoesByTextOverTheDocument)
{
    struct Names : public IJSONSerializer<String>
    {
        using IJSONSerializer::Deserialize;
        using IJSONSerializer::Serialize;
        Up<String> Deserialize(const JSONObject& object) override
        {
            return Up<String>(new String(object.GetString("name")));
        }
        void Serialize(const String& value, JSONStringer& stringer) override
        {
            stringer.BeginObject().Key("name").Value(value).EndObject();
        }
    };
    EXPECT_EQ("x", Names().Deserialize(Names().Serialize("x"))->Utf8());
}
