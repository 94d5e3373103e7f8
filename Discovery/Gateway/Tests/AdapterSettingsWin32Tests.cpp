#include <Discovery/Gateway/Platform/AdapterSettings.h>
#include <Tests/Support/TemporaryFolder.h>
#include <cstdlib>

using Zelkor::Discovery::Client::Platform::ChangeAdapterSettings;

/// The commands are those of Win32; a shell takes them as the command interpreter does.
TEST(AdapterSettingsWin32Tests, BothCommandsRunInTheirOrderAndTheSecondAloneDecides)
{
    const std::string path = getenv("PATH");
    const std::string both = "[interface ip set interface Ethernet 2 dadtransmits=0 store=active]"
                             "[interface ip set address Ethernet 2 static 10.1.2.3 255.255.0.0 10.1.0.1]";
    for (const auto& [command, name, isChanged, told] : {std::tuple("neither", std::string("Ethernet 2"), true, both),
                                                         {"interface", "Ethernet 2", true, both},
                                                         {"address", "Ethernet 2", false, both},
                                                         {"neither", std::string(200, 'x'), false, ""}})
    {
        const TemporaryFolder folder;
        const std::string netsh = folder.Path("netsh").Utf8();
        folder.Write("netsh", "#!/bin/sh\nprintf '[%s]' \"$*\" >>" + folder.Path("told").Utf8() +
                                  "\n[ $4 != " + std::string(command) + " ]");
        std::filesystem::permissions(netsh, std::filesystem::perms::owner_all);
        setenv("PATH", (folder.Path().Utf8() + ":" + path).c_str(), 1);

        EXPECT_EQ(isChanged, ChangeAdapterSettings({name, "10.1.2.3", "255.255.0.0", "10.1.0.1"}).error == 0);

        EXPECT_EQ(told, folder.Read("told"));
    }
    setenv("PATH", path.c_str(), 1);
}
