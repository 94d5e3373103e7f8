#include "HostSamples.h"

#include <Discovery/Protocol/SignatureBroadcastMessage.h>
#include <Tests/Support/LogRecorder.h>

using namespace Zelkor::Discovery;
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

std::string Changed(const std::string& old, const std::string& replacement)
{
    std::string text = SampleHostText;
    const std::size_t found = text.find(old);
    EXPECT_NE(std::string::npos, found) << old;
    return text.replace(found, old.size(), replacement);
}
} // namespace

TEST(HostRecordTests, AHardwareAddressIsReadFromLooseTextAndPrintedStrictly)
{
    using Row = std::pair<const char*, const char*>;
    for (const auto& [text, printed] :
         {Row{"aa:BB:cc:DD:ee:FF", "AA:BB:CC:DD:EE:FF"}, Row{"1:2:3:4:5:6", "01:02:03:04:05:06"},
          Row{"AA", "AA:00:00:00:00:00"}, Row{"", "00:00:00:00:00:00"}, Row{"0x1:002", "01:02:00:00:00:00"}})
    {
        EXPECT_EQ(printed, MACAddress(text).ToString().Utf8());
    }
    EXPECT_THROW(MACAddress("00-1A-2B-3C-4D-5E"), OverflowException);
    ExpectEachThrows<FormatException>({[&] { MACAddress("1:2::4:5:6"); }, [&] { MACAddress("1:2:3:4:5:6:7"); }});
    EXPECT_THROW(MACAddress(static_cast<const String&>(null)), ArgumentNullException);

    const Array<Byte> bytes(std::vector<Byte>{1, 2, 3, 4, 5, 6});
    EXPECT_TRUE(MACAddress(bytes) == MACAddress("1:2:3:4:5:6"));
    EXPECT_FALSE(MACAddress(bytes) == MACAddress("1:2:3:4:5:7") || MACAddress() == null);
    EXPECT_THROW(MACAddress(Array<Byte>(5)), ArgumentException);
    EXPECT_THROW(MACAddress(static_cast<const Array<Byte>&>(null)), ArgumentNullException);
    EXPECT_THROW(MACAddress() = static_cast<const MACAddress&>(null), ArgumentNullException);
    EXPECT_THROW(MACAddress(static_cast<const MACAddress&>(null)), ArgumentNullException);
}

TEST(HostRecordTests, EachFieldIsReadWrittenCopiedAndCompared)
{
    using Change = std::pair<std::string, std::string>;
    std::vector<Change> changes = {
        Change{R"(Only":false)", R"(Only":true)"},
        Change{R"(IPConfigChange":false)", R"(IPConfigChange":true)"},
        Change{"4D:5E", "4D:5F"},
        Change{"1.20", "1.21"},
        Change{"255.0", "254.0"},
        Change{R"(1.1")", R"(1.2")"},
        Change{R"("192.168.1.1")", R"("")"},
        Change{R"("Port")", R"("Part")"},
        Change{SampleNICText, ""},
        Change{SampleNICText, SampleNICText + "," + SampleNICText},
        Change{R"("Store"})",
               R"("Store"},{"ProductType":"","ProductSerialNumber":"","ProductVersion":"","ProductName":""})"}};
    for (const std::string text :
         {"STUDIO4", "Windows PC", "Computer", "4711", "LAN 1", "1500", "Server", "88", "2.1", "Store", "21"})
    {
        changes.emplace_back("\"" + text + "\"", R"("x")");
    }
    const DiscoveryHost sample = SampleHost();
    EXPECT_TRUE(Read<DiscoveryHost>(SampleHostText) == sample);
    for (const auto& [old, replacement] : changes)
    {
        SCOPED_TRACE(old + " becomes " + replacement);
        const std::string text = Changed(old, replacement);
        DiscoveryHost host = SampleHost();
        host.ReadJSON(String(text)); // nothing of what it was filled with stays
        EXPECT_EQ(text, Written(host));
        EXPECT_FALSE(host == sample || sample == host);
        DiscoveryHost assigned;
        assigned = host;
        EXPECT_EQ(text, Written(assigned));
        EXPECT_EQ(text, Written(*host.Clone()));
        EXPECT_TRUE(assigned == host);
    }
}

TEST(HostRecordTests, EqualityHasItsOddities)
{
    const DiscoveryHost host = SampleHost();
    DiscoveryHost other = Read<DiscoveryHost>(Changed(R"(NameChange":true)", R"(NameChange":false)"));
    EXPECT_FALSE(other.RebootRequiredForHostNameChange);
    EXPECT_TRUE(host == other); // takes no part
    other.FileTransferInfos->Infos->Add("More", "1");
    EXPECT_TRUE(other == host); // the pairs of the right operand count
    EXPECT_FALSE(host == other);

    const NICConfig read = Read<NICConfig>(R"({"FriendlyName":"","MACAddress":"","IPAddress":"1.1.1.1",)"
                                           R"("SubNetMask":"255.0.0.0","DefaultGateway":""})");
    EXPECT_FALSE(read.HasDefaultGateway);
    EXPECT_EQ("0.0.0.0", read.DefaultGateway.ToString().Utf8());
    NICConfig nic = read;
    nic.HasDefaultGateway = true;
    EXPECT_FALSE(nic == read);
}

TEST(HostRecordTests, AHostIsReadLenientlyButNeedsItsKeys)
{
    using Row = std::tuple<const char*, const char*, const char*>;
    for (const auto& [written, given, taken] :
         {Row{R"(Only":false)", R"(Only":"false")", R"(Only":true)"},
          Row{R"(IPConfigChange":false)", R"(IPConfigChange":"true")", R"(IPConfigChange":false)"},
          Row{R"(NameChange":true)", R"(NameChange":1)", R"(NameChange":false)"}, Row{R"("Computer")", "1", R"("")"},
          Row{R"("4711")", "4711", R"("")"}, Row{R"("1500")", "1500", R"("Unknown")"},
          Row{R"(,"MTU":"1500")", "", R"(,"MTU":"Unknown")"},
          Row{R"("FriendlyName":"LAN 1")", R"("friendlyname":"lan","FRIENDLYNAME":"x")", R"("FriendlyName":"lan")"}})
    {
        EXPECT_EQ(Changed(written, taken), Written(Read<DiscoveryHost>(Changed(written, given)))) << given;
    }
    for (const char* const key :
         {"HostName", "DeviceType", "NICs", "Products", "FriendlyName", "MACAddress", "IPAddress", "SubNetMask",
          "DefaultGateway", "ProductType", "ProductSerialNumber", "ProductVersion", "ProductName"})
    {
        EXPECT_THROW(Read<DiscoveryHost>(Changed("\"" + std::string(key) + "\"", "\"Other\"")), ArgumentException)
            << key;
    }
    EXPECT_THROW(Read<DiscoveryHost>(Changed(R"("Products":[)", R"("Products":[7,)")), ArgumentException);
    EXPECT_THROW(Read<DiscoveryHost>(Changed("1.20", "1.300")), OverflowException);
    EXPECT_THROW(Read<DiscoveryHost>(Changed("00:1A", "00-1A")), OverflowException);
    EXPECT_THROW(Read<NICConfig>("[]"), FormatException);
}

TEST(HostRecordTests, MissingOrBadFileTransferInfosCostTheHostNothing)
{
    EXPECT_EQ(R"({"HostName":"","IsHostNameReadOnly":true,"RebootRequiredForIPConfigChange":false,)"
              R"("RebootRequiredForHostNameChange":false,"DeviceType":"","DeviceFamily":"","SerialNumber":"",)"
              R"("NICs":[],"Products":[]})",
              Written(DiscoveryHost()));
    const std::string line = "S DiscoveryMessage: No FileTransfer infos or failed to parse JSON data";
    using Row = std::tuple<const char*, std::size_t, int>;
    for (const auto& [replacement, rows, infos] :
         {Row{R"({"Port":"21"})", 0, 1}, Row{"{}", 0, 0}, Row{"[1]", 1, 0}, Row{"null", 1, 0},
          Row{R"({"a":"1","b":2,"c":"3"})", 1, 1}, Row{R"({"a":"1","a":"2"})", 1, 1},
          Row{R"({"a":"1","A":"2"})", 0, 2}})
    {
        SCOPED_TRACE(replacement);
        LogRecorder log;
        DiscoveryHost host;
        host.FileTransferInfos.Reset(nullptr);
        host.ReadJSON(String(Changed(R"({"Port":"21"})", replacement)));
        EXPECT_EQ(Rows(rows, line), log.Take());
        EXPECT_EQ(infos, host.FileTransferInfos->Infos->Count());
    }

    LogRecorder log;
    DiscoveryHost host = SampleHost();
    host.FileTransferInfos->Infos->Clear();
    host.FileTransferInfos->Infos->Add("", "a key that can't be written");
    EXPECT_EQ(Changed(R"("Port":"21")", ""), Written(host));
    EXPECT_EQ(Rows{"E DiscoveryMessage: Exception caught during JSON FileTransfer infos parsing -> ignoring."},
              log.Take());
    host.FileTransferInfos.Reset(nullptr);
    EXPECT_EQ(Changed(R"(,"FileTransferInfos":{"Port":"21"})", ""), Written(DiscoveryHost(host)));
    EXPECT_TRUE(host == DiscoveryHost(host));
    EXPECT_FALSE(host == SampleHost());
}

TEST(HostRecordTests, CopiesOfAHostShareNothing)
{
    DiscoveryHost host = SampleHost();
    const Sp<DiscoveryHost> clone = host.Clone();
    DiscoveryHost assigned;
    assigned = host;
    const auto& itself = assigned;
    assigned = itself;
    SignatureBroadcastMessage message;
    message.AddNIC(*(*host.NICs)[0]);
    message.AddProduct(*(*host.Products)[0]);
    message.SetFileTransferInfos(*host.FileTransferInfos);

    (*host.NICs)[0]->FriendlyName = "other";
    (*host.Products)[0]->ProductName = "other";
    host.FileTransferInfos->Infos->Clear();

    EXPECT_EQ(SampleHostText, Written(*clone));
    EXPECT_EQ(SampleHostText, Written(assigned));
    EXPECT_TRUE(*(*message.Host.NICs)[0] == *(*assigned.NICs)[0]);
    EXPECT_TRUE(*(*message.Host.Products)[0] == *(*assigned.Products)[0]);
    EXPECT_TRUE(*message.Host.FileTransferInfos == *assigned.FileTransferInfos);
    EXPECT_THROW(assigned = static_cast<const DiscoveryHost&>(null), ArgumentNullException);
    EXPECT_THROW(*assigned.FileTransferInfos = static_cast<const FileTransferInfos&>(null), ArgumentNullException);
    EXPECT_FALSE(*assigned.FileTransferInfos == static_cast<const FileTransferInfos&>(null));
}
