#include <Tests/Support/CoreTest.h>

#include <Core/System/Net/IPAddress.h>
#include <Core/System/Net/Sockets/SocketException.h>

namespace Tesmo::System::Net
{
TEST(IPAddressTests, ReadsAndPrintsTheTextForms)
{
    using Row = std::tuple<const char*, const char*>;
    for (const auto& [text, printed] :
         {Row{"10.0.0.1", "10.0.0.1"}, Row{"[10.0.0.1]", "10.0.0.1"}, Row{"255.255.255.255", "255.255.255.255"},
          Row{"010.001.0.08", "10.1.0.8"}, Row{"0:0:0:0:0:0:0:1", "0:0:0:0:0:0:0:1"},
          Row{"[0:0:0:0:0:0:10:65535%70]", "0:0:0:0:0:0:a:ffff%70"}, Row{"0:0:0:0:0:0:0:1%0", "0:0:0:0:0:0:0:1"}})
    {
        SCOPED_TRACE(text);
        IPAddress parsed;
        EXPECT_TRUE(IPAddress::TryParse(text, parsed));
        EXPECT_EQ(printed, parsed.ToString().Utf8());
        EXPECT_TRUE(IPAddress::Parse(text).Equals(parsed));
    }
    ExpectTexts({TextRow{"255.255.255.255", IPAddress().ToString()}, TextRow{"0.0.0.0", IPAddress::Any.ToString()}});
    EXPECT_TRUE(IPAddress() == IPAddress::Broadcast);
}

TEST(IPAddressTests, RefusesOtherTextsAsTheirPartsDo)
{
    const auto parse = [](const char* text) { return [text] { IPAddress::Parse(text); }; };
    ExpectEachThrows<OverflowException>({parse("192.168.1.300"), parse("0:0:0:0:0:0:0:65536")});
    ExpectEachThrows<FormatException>(
        {parse("192.168.1.x"), parse("[10.0.0.1"), parse("0:0:0:0:0:0:0:a")}); // groups are decimal
    ExpectEachThrows<ArgumentException>(
        {parse(""), parse("1.2.3"), parse("::1"), parse("1:2:3:4:5:6:7"), parse("1:2:3:4:5:6:7:8:9")});
    IPAddress kept(1, 2, 3, 4);
    EXPECT_FALSE(IPAddress::TryParse(null, kept) || IPAddress::TryParse("", kept) ||
                 IPAddress::TryParse("192.168.1.300", kept));
    EXPECT_EQ("1.2.3.4", kept.ToString().Utf8());
}

TEST(IPAddressTests, ChecksWhatItIsMadeFrom)
{
    ExpectTexts({TextRow{"1.2.3.4", IPAddress(std::int64_t{0x04030201}).ToString()},
                 TextRow{"1.2.3.4", IPAddress(Array<Byte>(std::vector<Byte>{1, 2, 3, 4})).ToString()}});
    IPAddress address(Array<Byte>(16), 4294967295);
    EXPECT_EQ(4294967295, address.GetScopeId());
    ExpectEachThrows<ArgumentException>({[&] { IPAddress(Array<Byte>(5)); }, [&] { IPAddress(Array<Byte>(4), 1); }});
    ExpectEachThrows<ArgumentOutOfRangeException>(
        {[] { IPAddress(std::int64_t{0x100000000}); }, [] { IPAddress(std::int64_t{-1}); },
         [] { IPAddress(Array<Byte>(16), 0x100000000); }, [&] { address.SetScopeId(-1); }});
    address.SetScopeId(0);
    EXPECT_EQ(0, address.GetScopeId());
    address.SetScopeId(5);
    EXPECT_EQ("0:0:0:0:0:0:0:0%5", address.ToString().Utf8());
    IPAddress other;
    other.Address(0x0100007F);
    EXPECT_EQ("127.0.0.1", other.ToString().Utf8());
    ExpectEachThrows<Sockets::SocketException>(
        {[&] { address.Address(1); }, [&] { other.GetScopeId(); }, [&] { other.SetScopeId(5); }});
}

TEST(IPAddressTests, KnowsLoopback)
{
    using Row = std::tuple<const char*, bool>;
    for (const auto& [text, isLoopback] :
         {Row{"127.5.5.5", true}, Row{"128.0.0.1", false}, Row{"0:0:0:0:0:0:0:1", true},
          Row{"0:0:0:0:0:0:9:1", true}, // the seventh group is not looked at
          Row{"0:0:0:0:0:0:0:2", false}, Row{"0:0:0:0:0:1:0:1", false}})
    {
        EXPECT_EQ(isLoopback, IPAddress::IsLoopback(IPAddress::Parse(text))) << text;
    }
    EXPECT_FALSE(IPAddress::IsLoopback(null));
}

TEST(IPAddressTests, EqualsAndHashesByValue)
{
    const char* const texts[] = {"0.0.0.0",         "1.2.3.4",         "0:0:0:0:0:0:0:0",
                                 "0:0:0:0:0:0:1:2", "0:0:0:0:0:0:1:3", "0:0:0:0:0:0:1:2%3"};
    for (const char* const left : texts)
    {
        for (const char* const right : texts)
        {
            EXPECT_EQ(left == right, IPAddress::Parse(left) == IPAddress::Parse(right)) << left << " " << right;
        }
    }
    EXPECT_EQ(1 ^ 2, IPAddress::Parse("0:0:0:0:0:0:1:2%3").GetHashCode());
    EXPECT_EQ(0x04030201, IPAddress(1, 2, 3, 4).GetHashCode());
    EXPECT_EQ(0x01020304U, IPAddress(1, 2, 3, 4).HostOrder());
    EXPECT_EQ(1, IPAddress::Parse("0:0:0:0:0:0:0:1").Numbers()[7]);
}
} // namespace Tesmo::System::Net
