#include <Discovery/Gateway/Platform/AdapterSettings.h>
#include <Discovery/Gateway/Platform/IdentityNumber.h>
#include <Discovery/Gateway/Platform/ProgramRoot.h>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <optional>
#include <sstream>
#include <string>
#include <tuple>
#include <windows.h>

using namespace Zelkor::Discovery::Client::Platform;

namespace
{
// They change the registry and files of a host that is thrown away.

/// What netsh is told by a command.
std::string Told(const std::string& arguments)
{
    return "[interface][ip][set]" + arguments + " in " + std::filesystem::current_path().string() + "\n";
}

std::string Probes(const std::string& name)
{
    return Told("[interface][" + name + "][dadtransmits=0][store=active]");
}

std::string Address(const std::string& name)
{
    return Told("[address][" + name + "][static][10.1.2.3][255.255.0.0][10.1.0.1]");
}
} // namespace

TEST(HostTests, TheIdentityIsTheFirstKeysValueOfFourBytesAtMost)
{
    using Row = std::tuple<const char*, const char*, std::optional<std::uint32_t>>; // what the two keys hold
    const char* const seven = "/t REG_DWORD /d 7";
    for (const auto& [of32Bits, plain, number] :
         {Row{"", "", {}}, Row{"", seven, 7}, Row{"/t REG_DWORD /d 256", seven, 256}, Row{"/ve", seven, {}},
          Row{"", "/t REG_DWORD /d 0", 0}, Row{"", "/t REG_DWORD /d 0xFFFFFFFF", {}}, Row{"", "/d 1", 49},
          Row{"", "/d 12", {}}, Row{"", "/t REG_BINARY /d 05", 5}})
    {
        for (const auto& [parent, value] : {std::pair("Wow6432Node\\", std::string(of32Bits)), {"", plain}})
        {
            const std::string key = "HKLM\\Software\\" + std::string(parent) + "Zelkor\\Common /f ";
            const std::string name = value == "/ve" ? "" : "/v \"global serial number\" ";
            std::system(("reg delete " + key).c_str());
            std::system(value.empty() ? "rem" : ("reg add " + key + name + value).c_str());
        }
        EXPECT_EQ(number, ReadIdentityNumber());
    }
}

TEST(HostTests, TheProgramRootIsAboveTheCommonFilesOf32Bits)
{
    const std::string key = "reg add HKLM\\Software\\Microsoft\\Windows\\CurrentVersion /f ";
    std::filesystem::create_directories(L"C:\\B\u00FCro (x86)\\Common");
    for (const auto& [common, root] :
         {std::pair("C:\\B\xFCro (x86)\\Common", "C:\\B\u00FCro (x86)\\"), std::pair("C:\\Missing\\Common", "")})
    {
        std::system((key + "/v \"CommonFilesDir (x86)\" /d \"" + common + "\"").c_str());
        EXPECT_EQ(root, ProgramRoot());
    }
}

TEST(HostTests, NetshGetsBothCommandsAndTheSecondAloneDecides)
{
    const std::filesystem::path programs = std::filesystem::path(_pgmptr).parent_path().parent_path() / "stand-ins";
    _putenv(("PATH=" + programs.string() + ";" + std::getenv("PATH")).c_str());
    const std::string longest(185, 'x'); // 255 bytes of the second command
    const std::string german = "B\xFCro & Lager* 11";
    using Row = std::tuple<std::string, const char*, int, std::string>;
    for (const auto& [name, codes, error, told] :
         {Row{"Ethernet 2", "0 0", 0, Probes("Ethernet 2") + Address("Ethernet 2")},
          Row{german, "1 0", 0, Probes(german) + Address(german)},
          Row{"lan0", "0 1", 1, Probes("lan0") + Address("lan0")}, Row{"", "0 300", 300, Probes("") + Address("")},
          Row{"a\"b c", "0 0", 0,
              Told("[interface][ab][c dadtransmits=0 store=active]") +
                  Told("[address][ab][c static 10.1.2.3 255.255.0.0 10.1.0.1]")},
          Row{longest, "0 0", 0, Probes(longest) + Address(longest)},
          Row{longest + "x", "0 0", -1, Probes(longest + "x")},
          Row{longest + "1234567", "0 0", -1, Probes(longest + "1234567")}, Row{longest + "12345678", "0 0", -1, ""}})
    {
        std::ofstream("C:\\netsh.codes") << codes;
        std::filesystem::remove("C:\\netsh.told");
        EXPECT_EQ(error, ChangeAdapterSettings({name, "10.1.2.3", "255.255.0.0", "10.1.0.1"}).error);
        std::ostringstream found;
        found << std::ifstream("C:\\netsh.told", std::ios::binary).rdbuf();
        EXPECT_EQ(told, found.str());
    }
}
