#include "ProductPluginsFixture.h"

#include <fstream>

namespace Zelkor::Discovery::Client
{
bool IsLoaded(const std::string& path)
{
    std::ifstream maps("/proc/self/maps");
    return std::string(std::istreambuf_iterator<char>(maps), {}).find(path) != std::string::npos;
}

TEST_F(DiscoveryProductPluginsControllerTests, WhatAPluginThrowsPassesThroughAndCanBeRead)
{
    Install("ThrowingPlugin", "throwing");
    EXPECT_THAT([this] { Products(); }, testing::ThrowsMessage<std::runtime_error>("thrown by a plug-in"));
}
} // namespace Zelkor::Discovery::Client
