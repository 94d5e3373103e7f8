#include <Tests/Support/CoreTest.h>

#include <Core/System/IO/FileAttributes.h>
#include <Core/System/IO/FileMode.h>
#include <Core/System/IO/FileShare.h>
#include <Core/System/Net/Sockets/Socket.h>
#include <Core/System/Net/Sockets/SocketError.h>

using namespace Tesmo::System::IO;
using namespace Tesmo::System::Net::Sockets;
using Threading::ThreadPriority, Threading::ThreadState;

TEST(EnumTests, ValuesPrintAsNameOrNumberAndFlagsWithTheHighestFirstWhereNamesCoverThem)
{
    const auto told = [](const auto& value) { return value.ToString() + (value.IsDefined() ? "" : " undefined"); };
    using Row = TextRow;
    ExpectTexts({Row{"Create", told(FileMode(2))},
                 Row{"-7 undefined", told(FileMode(-7))},
                 Row{"WaitSleepJoin, Unstarted", told(ThreadState(40))},
                 Row{"Running", told(ThreadState(0))},
                 Row{"Stopped", told(ThreadState(16))},
                 Row{"552 undefined", told(ThreadState(552))},
                 Row{"512 undefined", told(ThreadState(512))},
                 Row{"InterNetwork", told(AddressFamily(2))},
                 Row{"3 undefined", told(AddressFamily(3))},
                 Row{"ConnectionReset", told(SocketError(10054))},
                 Row{"Linger", told(SocketOptionName(128))},
                 Row{"Both", told(SocketShutdown(2))},
                 Row{"Udp", told(ProtocolType(17))},
                 Row{"Peek", told(SocketFlags(2))},
                 Row{"Tcp", told(SocketOptionLevel(6))},
                 Row{"Dgram", told(SocketType(2))},
                 Row{"ReadWrite", told(FileShare(3))},
                 Row{"Highest", told(ThreadPriority(4))},
                 Row{"0 undefined", told(FileAttributes(0))},
                 Row{"Directory, ReadOnly", told(FileAttributes(17))},
                 Row{"8 undefined", told(FileAttributes(8))}});
}

TEST(EnumTests, NamesAndNumbersParseAndFlagsAsAListOfNames)
{
    using Row = std::tuple<const char*, bool, bool, int>;
    const auto expect = [](auto target, const Row& row)
    {
        const auto& [text, ignoreCase, outcome, value] = row;
        EXPECT_EQ(outcome, target.TryParse(text, ignoreCase, target)) << text;
        EXPECT_EQ(value, static_cast<int>(target.Value())) << text;
    };
    for (const Row& row : {Row{"Create", false, true, 2}, Row{"create", false, false, 9}, Row{"create", true, true, 2},
                           Row{" 42 ", false, true, 42}, Row{"", false, false, 9}})
    {
        expect(FileMode(9), row);
    }
    for (const Row& row :
         {Row{"Unstarted, WaitSleepJoin", false, true, 40}, Row{" Stopped ", false, true, 16},
          Row{"40", false, true, 40}, Row{"Stopped,Nothing,Background", false, false, 20},
          Row{"Stopped,8", false, false, 16}, Row{"stopped", false, false, 0}, Row{"", false, false, 0}})
    {
        expect(ThreadState(63), row);
    }
    expect(AddressFamily(0), {"internetwork", true, true, 2});
    expect(AddressFamily(0), {"Unspecified, InterNetwork", true, false, 0});
    expect(FileAttributes(), {"ReadOnly,Hidden", false, true, 3});
    FileMode mode(9);
    EXPECT_FALSE(mode.TryParse(null, false, mode));
    ExpectEachThrows<ArgumentNullException>(
        {[] { FileMode(9).TryParse("Open", false, const_cast<FileMode&>(static_cast<const FileMode&>(null))); },
         [] {
             ThreadState(0).TryParse("Stopped", false, const_cast<ThreadState&>(static_cast<const ThreadState&>(null)));
         },
         []
         {
             auto& nothing = const_cast<AddressFamily&>(static_cast<const AddressFamily&>(null));
             AddressFamily::TryParse("InterNetwork", false, nothing);
         }});
}

TEST(EnumTests, ComparisonStaysWithinTheClass)
{
    const FileMode create(FileMode::Create);
    EXPECT_TRUE(create.Equals(FileMode(2)));
    EXPECT_FALSE(create.Equals(ThreadState(2)) || create.Equals(null));
    EXPECT_LT(create.CompareTo(FileMode(3)), 0);
    EXPECT_EQ(1, create.CompareTo(null));
    EXPECT_TRUE(create < FileMode::Open && create != FileMode(FileMode::Open));
    EXPECT_EQ(2, create.GetHashCode());
    EXPECT_TRUE(FileAttributes(2).Equals(FileAttributes(FileAttributes::Hidden)));
    EXPECT_TRUE(AddressFamily(2) == AddressFamily::InterNetwork);
    EXPECT_FALSE(FileMode(0) == static_cast<const FileMode&>(null));
    EXPECT_FALSE(AddressFamily(0) == static_cast<const AddressFamily&>(null));
}
