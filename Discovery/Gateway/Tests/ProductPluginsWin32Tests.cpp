#include "ProductPluginsFixture.h"

#include <windows.h>

#include <csignal>
#include <psapi.h>

namespace Zelkor::Discovery::Client
{
bool IsLoaded(const std::string& path)
{
    return GetModuleHandleA(path.c_str()) != nullptr;
}

namespace
{
/// Bytes that the process has for itself.
SIZE_T OwnMemory()
{
    PROCESS_MEMORY_COUNTERS counters = {};
    K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return counters.PagefileUsage;
}
} // namespace

TEST_F(DiscoveryProductPluginsControllerTests, APluginThatThrowsOrHasNoObjectEndsTheProcess)
{
    Install("ThrowingPlugin", "plugin");
    EXPECT_EXIT(Products(), testing::ExitedWithCode(3), "thrown by a plug-in"); // 3: abort of the run-time library
    Install("NullPlugin", "plugin");
    EXPECT_EXIT((std::signal(SIGSEGV, _exit), Products()), testing::ExitedWithCode(SIGSEGV), "");
}

/// A process has 1088 thread-local indexes.
TEST_F(DiscoveryProductPluginsControllerTests, TwelveHundredLoadsOfEitherBuildLeaveNothingBehind)
{
    Install("PosixPlugin", "posix");
    std::set<std::string> expected;
    for (const std::string name : {"1", "2", "3", "4"})
    {
        Install("StorePlugin", "store" + name);
        Install("LeakingPlugin", "leaking" + name);
        expected.insert(Critical("Product infos DLL takes a thread-local index at each load and never gives it back, "
                                 "it stays loaded from now on. File : " +
                                 File("leaking" + name)));
    }
    LogRecorder log;
    SIZE_T before = 0;
    for (int round = 0; round < 300; ++round)
    {
        ASSERT_EQ(Texts(9, store), Products()) << round;
        before = round == 10 ? OwnMemory() : before;
    }
    EXPECT_LT(OwnMemory(), before + 1'000'000);
    Texts rows = log.Take();
    std::erase_if(rows, [](const std::string& row) { return row[0] != 'C'; });
    EXPECT_THAT(rows, testing::UnorderedElementsAreArray(expected));
    EXPECT_TRUE(IsLoaded(File("leaking1")) && !IsLoaded(File("store1")) && !IsLoaded(File("posix")));
}

TEST_F(DiscoveryProductPluginsControllerTests, APluginThatStaysLoadedIsReplacedOrRemovedOnceItsFileIsRenamed)
{
    const fs::path renamed = folder.Path("renamed").Utf8();
    for (const auto& [plugin, product] :
         {std::pair("LeakingPlugin", store), {"UpdatedLeakingPlugin", updatedStore}, {"LeakingPlugin", store}})
    {
        Install(plugin, "leaking");
        for (int load = 0; load < 3; ++load)
        {
            EXPECT_EQ(Texts{product}, Products());
        }
        EXPECT_TRUE(IsLoaded(File("leaking")));
        fs::remove(renamed);
        fs::rename(File("leaking"), renamed);
    }
    EXPECT_EQ(Texts(), Products());
    EXPECT_TRUE(fs::remove(renamed));
}
} // namespace Zelkor::Discovery::Client
