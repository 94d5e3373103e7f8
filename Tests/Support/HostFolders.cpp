#include "HostFolders.h"

#include "Commands.h"

#include <sched.h>
#include <stdexcept>
#include <sys/mount.h>
#include <unistd.h>

namespace
{
namespace fs = std::filesystem;

const fs::path logRoot = ZELKOR_LOG_ROOT;
const fs::path programRoot = ZELKOR_PROGRAM_ROOT;

fs::path MakeTemporaryFolder()
{
    std::string name = fs::temp_directory_path() / "discovery-host-XXXXXX";
    if (mkdtemp(name.data()) == nullptr)
    {
        throw std::runtime_error("no temporary folder");
    }
    return name;
}

bool PutInPlaceOf(const fs::path& target, const fs::path& folder)
{
    return mount(folder.c_str(), target.c_str(), nullptr, MS_BIND, nullptr) == 0;
}
} // namespace

HostFolders::HostFolders() : aboveLogs(MakeTemporaryFolder()), programs(MakeTemporaryFolder())
{
    fs::create_directories(Discovery() / "ProductIDs");
}

HostFolders::~HostFolders()
{
    for (const fs::path& folder : {aboveLogs, programs})
    {
        std::error_code ignored;
        fs::remove_all(folder, ignored);
    }
}

fs::path HostFolders::LogFile() const
{
    return aboveLogs / logRoot.filename() / "Discovery/DiscoveryClient/DiscoveryClient.log";
}

std::string HostFolders::Log() const
{
    return ReadText(LogFile());
}

fs::path HostFolders::Discovery() const
{
    return programs / "Zelkor/Common/Discovery";
}

void HostFolders::BecomeProgram() const noexcept
{
    if (unshare(CLONE_NEWNS | CLONE_NEWUTS) == 0 && sethostname("STUDIO4", 7) == 0 &&
        mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
        PutInPlaceOf(logRoot.parent_path(), aboveLogs) && PutInPlaceOf(programRoot, programs))
    {
        ReplaceBy({DISCOVERY_CLIENT});
    }
    _exit(127);
}
