#include "ProductPluginsFixture.h"

#include <windows.h>

namespace Zelkor::Discovery::Client
{
bool IsLoaded(const std::string& path)
{
    return GetModuleHandleA(path.c_str()) != nullptr;
}

TEST_F(DiscoveryProductPluginsControllerTests, APluginThatThrowsEndsTheProcess)
{
    Install("ThrowingPlugin", "throwing");
    EXPECT_EXIT(Products(), testing::ExitedWithCode(3), "thrown by a plug-in"); // 3: abort of the run-time library
}
} // namespace Zelkor::Discovery::Client
