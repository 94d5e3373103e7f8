#include <Tests/Support/CoreTest.h>

#include <Core/System/Net/IPAddress.h>
#include <Core/System/Net/Sockets/SocketException.h>

namespace Tesmo::System::Net
{
namespace
{
IPAddress MakeIPv6(std::uint8_t seventhGroup, std::uint8_t last, std::int64_t scope = 0)
{
    Array<Byte> bytes(16);
    bytes[13] = seventhGroup;
    bytes[15] = last;
    return IPAddress(bytes, scope);
}
} // namespace

TEST(IPAddressTests, ReadsAndPrintsTheTextForms)
{
    using Row = std::tuple<const char*, const char*>;
    for (const auto& [text, printed] :
         {Row{"10.0.0.1", "10.0.0.1"}, Row{"[10.0.0.1]", "10.0.0.1"}, Row{"255.255.255.255", "255.255.255.255"},
          Row{"010.001.0.08", "10.1.0.8"}, Row{"0:0:0:0:0:0:0:1", "0:0:0:0:0:0:0:1"},
          Row{"[0:0:0:0:0:0:10:65535%7]", "0:0:0:0:0:0:a:ffff%7"}, Row{"0:0:0:0:0:0:0:1%0", "0:0:0:0:0:0:0:1"}})
    {
        SCOPED_TRACE(text);
        IPAddress parsed;
        EXPECT_TRUE(IPAddress::TryParse(text, parsed));
        EXPECT_EQ(printed, parsed.ToString().Utf8());
        EXPECT_TRUE(IPAddress::Parse(text).Equals(parsed));
    }
    EXPECT_EQ("255.255.255.255", IPAddress().ToString().Utf8());
    EXPECT_EQ("0.0.0.0", IPAddress::Any.ToString().Utf8());
    EXPECT_TRUE(IPAddress() == IPAddress::Broadcast);
}

TEST(IPAddressTests, RefusesOtherTextsAsTheirPartsDo)
{
    IPAddress kept(1, 2, 3, 4);
    EXPECT_THROW(IPAddress::Parse("192.168.1.300"), OverflowException);
    EXPECT_THROW(IPAddress::Parse("0:0:0:0:0:0:0:65536"), OverflowException);
    EXPECT_THROW(IPAddress::Parse("192.168.1.x"), FormatException);
    EXPECT_THROW(IPAddress::Parse("0:0:0:0:0:0:0:a"), FormatException); // groups are decimal
    EXPECT_THROW(IPAddress::Parse("[10.0.0.1"), FormatException);
    for (const char* text : {"", "1.2.3", "::1", "1:2:3:4:5:6:7", "1:2:3:4:5:6:7:8:9"})
    {
        EXPECT_THROW(IPAddress::Parse(text), ArgumentException) << text;
        EXPECT_FALSE(IPAddress::TryParse(text, kept)) << text;
    }
    EXPECT_FALSE(IPAddress::TryParse("192.168.1.300", kept) || IPAddress::TryParse("[10.0.0.1", kept));
    EXPECT_EQ("1.2.3.4", kept.ToString().Utf8());
}

TEST(IPAddressTests, ChecksWhatItIsMadeFrom)
{
    EXPECT_EQ("1.2.3.4", IPAddress(std::int64_t{0x04030201}).ToString().Utf8());
    EXPECT_EQ("1.2.3.4", IPAddress(Array<Byte>(std::vector<Byte>{1, 2, 3, 4})).ToString().Utf8());
    EXPECT_THROW(IPAddress(std::int64_t{0x100000000}), ArgumentOutOfRangeException);
    EXPECT_THROW(IPAddress(std::int64_t{-1}), ArgumentOutOfRangeException);
    EXPECT_THROW(IPAddress(Array<Byte>(5)), ArgumentException);
    EXPECT_THROW(IPAddress(Array<Byte>(4), 1), ArgumentException);
    EXPECT_THROW(MakeIPv6(0, 1, 0x100000000), ArgumentOutOfRangeException);
}

TEST(IPAddressTests, KnowsLoopback)
{
    EXPECT_TRUE(IPAddress::IsLoopback(IPAddress(127, 5, 5, 5)));
    EXPECT_FALSE(IPAddress::IsLoopback(IPAddress(128, 0, 0, 1)));
    EXPECT_TRUE(IPAddress::IsLoopback(IPAddress::Parse("0:0:0:0:0:0:0:1")));
    EXPECT_TRUE(IPAddress::IsLoopback(MakeIPv6(9, 1))); // the seventh group is not looked at
    EXPECT_FALSE(IPAddress::IsLoopback(MakeIPv6(0, 2)));
    EXPECT_FALSE(IPAddress::IsLoopback(null));
}

TEST(IPAddressTests, EqualsAndHashesByValue)
{
    EXPECT_TRUE(MakeIPv6(1, 2, 3) == MakeIPv6(1, 2, 3));
    EXPECT_FALSE(MakeIPv6(1, 2, 3) == MakeIPv6(1, 2, 4));
    EXPECT_FALSE(MakeIPv6(1, 2) == MakeIPv6(1, 3));
    EXPECT_FALSE(IPAddress::Any == IPAddress(Array<Byte>(16)));
    EXPECT_EQ(1 ^ 2, MakeIPv6(1, 2, 3).GetHashCode());
    EXPECT_EQ(IPAddress(1, 2, 3, 4).GetHashCode(), IPAddress::Parse("1.2.3.4").GetHashCode());
}

TEST(IPAddressTests, OnlyIPv6HasAScopeAndOnlyIPv4ANumber)
{
    IPAddress address = MakeIPv6(0, 1, 4294967295);
    EXPECT_EQ(1, address.Numbers()[7]);
    EXPECT_THROW(address.Address(1), Sockets::SocketException);
    EXPECT_EQ(4294967295, address.GetScopeId());
    address.SetScopeId(5);
    EXPECT_EQ("0:0:0:0:0:0:0:1%5", address.ToString().Utf8());
    EXPECT_THROW(address.SetScopeId(-1), ArgumentOutOfRangeException);
    IPAddress other(1, 2, 3, 4);
    other.Address(0x0100007F);
    EXPECT_EQ("127.0.0.1", other.ToString().Utf8());
    EXPECT_THROW(other.GetScopeId(), Sockets::SocketException);
    EXPECT_THROW(other.SetScopeId(5), Sockets::SocketException);
}
} // namespace Tesmo::System::Net
