#include "WireSamples.h"
#include <Tests/Support/LogRecorder.h>

#include <Tests/Support/CoreTest.h>

using namespace Tesmo;
using namespace Tesmo::System;
using namespace Zelkor::Discovery;
using Tesmo::System::Net::IPAddress;
using Zelkor::Serialization::Json::JSONStringer;

namespace
{
template <class Record>
std::string Written(const Record& record)
{
    JSONStringer stringer;
    return record.WriteJSON(stringer).ToString().Utf8();
}

template <class Record>
Record Read(std::string text)
{
    Record record;
    record.ReadJSON(String(std::move(text)));
    return record;
}

std::string Replaced(std::string text, const std::string& old, const std::string& replacement)
{
    const std::size_t found = text.find(old);
    EXPECT_NE(std::string::npos, found) << old;
    return text.replace(found, old.size(), replacement);
}
} // namespace

TEST(HostRecordTests, AHardwareAddressIsReadFromLooseTextAndPrintedStrictly)
{
    const std::pair<const char*, const char*> rows[] = {
        {"aa:BB:cc:DD:ee:FF", "AA:BB:CC:DD:EE:FF"},
        {"1:2:3:4:5:6", "01:02:03:04:05:06"},
        {"AA", "AA:00:00:00:00:00"},
        {"", "00:00:00:00:00:00"},
        {"0x1:002", "01:02:00:00:00:00"},
    };
    for (const auto& [text, printed] : rows)
    {
        EXPECT_EQ(printed, MACAddress(text).ToString().Utf8());
    }
    EXPECT_THROW(MACAddress("00-1A-2B-3C-4D-5E"), FormatException);
    EXPECT_THROW(MACAddress("1:2::4:5:6"), FormatException);
    EXPECT_THROW(MACAddress("1:2:3:4:5:6:7"), FormatException);
    EXPECT_THROW(MACAddress("1:2:3:4:5:100"), OverflowException);
    EXPECT_THROW(MACAddress(static_cast<const String&>(null)), ArgumentNullException);

    Array<Byte> bytes(6);
    bytes[0] = 0xAB;
    EXPECT_TRUE(MACAddress(bytes) == MACAddress("AB"));
    EXPECT_FALSE(MACAddress(bytes) == MACAddress());
    EXPECT_THROW(MACAddress(Array<Byte>(5)), ArgumentException);
    MACAddress target;
    EXPECT_THROW(target = static_cast<const MACAddress&>(null), ArgumentNullException);
}

TEST(HostRecordTests, AnInterfaceWithoutGatewayHasAnEmptyText)
{
    NICConfig nic = *SampleNIC();
    nic.HasDefaultGateway = false;
    const std::string text = Replaced(SampleNICText(), R"("192.168.1.1")", R"("")");
    EXPECT_EQ(text, Written(nic));
    const NICConfig read = Read<NICConfig>(text);
    EXPECT_FALSE(read.HasDefaultGateway);
    EXPECT_EQ("0.0.0.0", read.DefaultGateway.ToString().Utf8());
    EXPECT_EQ("255.255.255.255", NICConfig().DefaultGateway.ToString().Utf8());
}

TEST(HostRecordTests, OnlyTheMTUOfAnInterfaceMayBeMissing)
{
    EXPECT_EQ("Unknown", Read<NICConfig>(Replaced(SampleNICText(), R"("1500")", "1500")).MTU.Utf8());
    EXPECT_EQ("Unknown", Read<NICConfig>(Replaced(SampleNICText(), R"(,"MTU":"1500")", "")).MTU.Utf8());
    for (const char* const key : {"FriendlyName", "MACAddress", "IPAddress", "SubNetMask", "DefaultGateway"})
    {
        SCOPED_TRACE(key);
        EXPECT_THROW(Read<NICConfig>(Replaced(SampleNICText(), key, "Other")), ArgumentException);
    }
    EXPECT_THROW(Read<NICConfig>(Replaced(SampleNICText(), "1.20", "1.300")), OverflowException);
    EXPECT_THROW(Read<NICConfig>(Replaced(SampleNICText(), "00:1A", "00-1A")), FormatException);
    EXPECT_THROW(Read<NICConfig>("[]"), FormatException);
    EXPECT_EQ("lan", Read<NICConfig>(Replaced(SampleNICText(), R"("FriendlyName":"LAN 1")",
                                              R"("friendlyname":"lan","FRIENDLYNAME":"x")"))
                         .FriendlyName.Utf8());
}

TEST(HostRecordTests, AnEmptyHostIsWrittenWithoutInfosAndAReadOneEqualsItsOrigin)
{
    EXPECT_EQ(R"({"HostName":"","IsHostNameReadOnly":true,"RebootRequiredForIPConfigChange":false,)"
              R"("RebootRequiredForHostNameChange":false,"DeviceType":"","DeviceFamily":"","SerialNumber":"",)"
              R"("NICs":[],"Products":[]})",
              Written(DiscoveryHost()));
    EXPECT_TRUE(Read<DiscoveryHost>(SampleHostText()) == SampleHost());
}

TEST(HostRecordTests, AHostIsReadLeniently)
{
    const std::string text = SampleHostText();
    EXPECT_TRUE(Read<DiscoveryHost>(Replaced(text, "Only\":false", "Only\":\"false\"")).IsHostNameReadOnly);
    EXPECT_FALSE(
        Read<DiscoveryHost>(Replaced(text, "NameChange\":true", "NameChange\":1")).RebootRequiredForHostNameChange);
    EXPECT_EQ("", Read<DiscoveryHost>(Replaced(text, "\"4711\"", "4711")).SerialNumber.Utf8());
    for (const char* const key : {"HostName\"", "DeviceType", "NICs", "Products\"", "ProductType", "IPAddress"})
    {
        SCOPED_TRACE(key);
        EXPECT_THROW(Read<DiscoveryHost>(Replaced(text, key, "Other\"")), Exception);
    }
    EXPECT_THROW(Read<DiscoveryHost>(Replaced(text, R"("Products":[)", R"("Products":[7,)")), ArgumentException);
    EXPECT_EQ(1, Read<DiscoveryHost>(text).NICs->Count());
    DiscoveryHost twice = Read<DiscoveryHost>(text);
    twice.ReadJSON(String(text));
    EXPECT_EQ(1, twice.NICs->Count()); // the lists are filled anew
}

TEST(HostRecordTests, BadFileTransferInfosAreLoggedAndCostTheHostNothing)
{
    const std::string line = "S DiscoveryMessage: No FileTransfer infos or failed to parse JSON data";
    using Row = std::tuple<const char*, std::size_t, int>;
    for (const auto& [replacement, rows, infos] :
         {Row{R"({"Port":"21"})", 0, 1}, Row{"{}", 0, 0}, Row{"[1]", 1, 0}, Row{"null", 1, 0},
          Row{R"({"a":"1","b":2,"c":"3"})", 1, 1}, Row{R"({"a":"1","a":"2"})", 1, 1},
          Row{R"({"a":"1","A":"2"})", 0, 2}})
    {
        SCOPED_TRACE(replacement);
        LogRecorder log;
        const DiscoveryHost host = Read<DiscoveryHost>(Replaced(SampleHostText(), R"({"Port":"21"})", replacement));
        EXPECT_EQ(std::vector<std::string>(rows, line), log.Take());
        EXPECT_EQ(infos, host.FileTransferInfos->Infos->Count());
    }

    LogRecorder log;
    DiscoveryHost host = SampleHost();
    host.FileTransferInfos->Infos->Clear();
    host.FileTransferInfos->Infos->Add("", "a key that can't be written");
    EXPECT_EQ(Replaced(SampleHostText(), R"("Port":"21")", ""), Written(host));
    const std::vector<std::string> rows = log.Take();
    ASSERT_EQ(2u, rows.size());
    EXPECT_EQ(0u, rows[0].find("C DiscoveryMessage: Exception caught during JSON FileTransfer infos parsing -> "
                               "ignoring.: "));
    host.FileTransferInfos.Reset(nullptr);
    EXPECT_EQ(Replaced(SampleHostText(), R"(,"FileTransferInfos":{"Port":"21"})", ""), Written(DiscoveryHost(host)));
}

TEST(HostRecordTests, EqualityHasItsOddities)
{
    const DiscoveryHost host = SampleHost();
    DiscoveryHost other = host;
    other.RebootRequiredForHostNameChange = false;
    EXPECT_TRUE(host == other); // takes no part

    other.FileTransferInfos->Infos->Add("More", "1");
    EXPECT_TRUE(other == host); // the pairs of the right operand count
    EXPECT_FALSE(host == other);

    other = host;
    other.NICs->operator[](0)->MTU = "9000";
    EXPECT_FALSE(host == other);
    other = host;
    other.AddNIC(SampleNIC());
    EXPECT_FALSE(host == other);
    other = host;
    other.Products->Clear();
    EXPECT_FALSE(host == other);
    other = host;
    other.RebootRequiredForIPConfigChange = true;
    EXPECT_FALSE(host == other);
}

TEST(HostRecordTests, CopiesOfAHostShareNothing)
{
    DiscoveryHost host = SampleHost();
    const DiscoveryHost copy(host);
    const Sp<DiscoveryHost> clone = host.Clone();
    DiscoveryHost assigned;
    assigned = host;
    const auto& itself = assigned;
    assigned = itself;

    host.HostName = "OTHER";
    host.NICs->operator[](0)->FriendlyName = "other";
    host.Products->Clear();
    host.FileTransferInfos->Infos->Clear();

    EXPECT_EQ(SampleHostText(), Written(copy));
    EXPECT_EQ(SampleHostText(), Written(*clone));
    EXPECT_EQ(SampleHostText(), Written(assigned));
    EXPECT_THROW(assigned = static_cast<const DiscoveryHost&>(null), ArgumentNullException);
    EXPECT_THROW(*assigned.FileTransferInfos = static_cast<const FileTransferInfos&>(null), ArgumentNullException);
}
