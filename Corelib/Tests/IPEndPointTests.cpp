#include <Tests/Support/CoreTest.h>

#include <Core/System/Net/Dns.h>
#include <Core/System/Net/IPEndPoint.h>

namespace Tesmo::System::Net
{
TEST(IPEndPointTests, PrintsComparesAndChecksItsPort)
{
    IPEndPoint endPoint(IPAddress(10, 0, 0, 1), 12001);
    EXPECT_EQ("10.0.0.1:12001", endPoint.ToString().Utf8());
    EXPECT_TRUE(endPoint.Equals(IPEndPoint(IPAddress(10, 0, 0, 1), 12001)));
    EXPECT_FALSE(endPoint.Equals(IPEndPoint(IPAddress(10, 0, 0, 1), 12000)));

    EXPECT_EQ(65535, IPEndPoint(IPAddress::Any, 65535).Port());
    ExpectEachThrows<ArgumentOutOfRangeException>({[] { IPEndPoint(IPAddress::Any, 65536); },
                                                   [] { IPEndPoint(IPAddress::Any, -1); },
                                                   [&] { endPoint.Port(65536); }});

    endPoint.Address(IPAddress::Parse("0:0:0:0:0:0:0:1"));
    EXPECT_EQ("InterNetworkV6", endPoint.AddressFamily().ToString().Utf8());
}

TEST(IPEndPointTests, SerializesToTheRawFormAndBack)
{
    using Row = std::tuple<const char*, std::vector<unsigned char>>;
    for (const auto& [address, bytes] :
         {Row{"10.0.2.1", {2, 0, 0x2E, 0xE1, 10, 0, 2, 1, 0, 0, 0, 0, 0, 0, 0, 0}},
          Row{"513:258:0:0:0:0:0:1%772",
              {23, 0, 0x2E, 0xE1, 0, 0, 0, 0, 2, 1, 1, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 4, 3, 0, 0}}})
    {
        SCOPED_TRACE(address);
        const IPEndPoint endPoint(IPAddress::Parse(address), 12001);
        const SocketAddress raw = endPoint.Serialize();
        EXPECT_TRUE(raw.Equals(SocketAddress(bytes.data(), static_cast<int>(bytes.size()))));
        const Up<EndPoint> back = IPEndPoint(IPAddress::Any, 0).Create(raw);
        EXPECT_TRUE(back->Equals(endPoint)) << back->ToString().Utf8();
    }
}

TEST(IPEndPointTests, RefusesRawFormsThatHoldNoAddress)
{
    using Sockets::AddressFamily;
    const IPEndPoint any(IPAddress::Any, 0);
    using Row = std::tuple<AddressFamily, int>;
    for (const auto& [family, size] : {Row{AddressFamily::InterNetwork, 2}, Row{AddressFamily::InterNetwork, 7},
                                       Row{AddressFamily::InterNetworkV6, 27}, Row{AddressFamily::Unix, 28}})
    {
        EXPECT_THROW(any.Create(SocketAddress(family, size)), ArgumentException) << size;
    }
    EXPECT_TRUE(any.Create(SocketAddress(AddressFamily::InterNetwork, 8))->Equals(any)) << "8 bytes are enough";
    EXPECT_THROW(SocketAddress(AddressFamily::Unix, 1), ArgumentOutOfRangeException);
    const SocketAddress raw = EndPoint(AddressFamily::InterNetworkV6).Serialize();
    EXPECT_TRUE(raw.Size() == 2 && !raw.Equals(null) && raw.Family() == AddressFamily::InterNetworkV6);
    EXPECT_EQ(23, raw[0]);
    EXPECT_THROW(EndPoint(AddressFamily::InterNetwork).Create(raw), NotSupportedException);
}

TEST(DnsTests, LooksUpThisHost)
{
    EXPECT_TRUE(Dns::GetHostAddresses("localhost").Contains(IPAddress(127, 0, 0, 1)));
    EXPECT_FALSE(Dns::GetHostEntry(IPAddress(127, 0, 0, 1)).HostName().IsEmpty() || Dns::GetHostName().IsEmpty());
    EXPECT_THROW(Dns::GetHostAddresses(String('a', 300)), InvalidOperationException);
}
} // namespace Tesmo::System::Net
