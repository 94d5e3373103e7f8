#include "ProductPluginsFixture.h"

namespace Zelkor::Discovery::Client
{
namespace
{
namespace fs = std::filesystem;

const std::string longName = "St\xC3\xB6re, with a name that is longer than what a text keeps within itself";
const std::string store = "Server|88|2.1|" + longName;
const std::string updatedStore = "Server|88|2.2|" + longName;
const std::string sample = "Sample|4711|1.0|Sample product";

std::string Found(int count)
{
    return "S ProductPluginsController: Found " + std::to_string(count) + " ProductInfos plugins.";
}

std::string Critical(const std::string& text)
{
    return "C ProductPluginsController: " + text;
}

} // namespace

TEST_F(DiscoveryProductPluginsControllerTests, EachPluginIsAProductFromItsInstallationToItsRemoval)
{
    LogRecorder log;
    folder.Write("readme.txt", "no plug-in");
    fs::create_directory(File("folder"));
    EXPECT_EQ(Texts(), Products());
    EXPECT_EQ(Texts(), log.Take());

    Install("StorePlugin", "m");
    Install("SampleProductPlugin", "b");
    EXPECT_EQ((Texts{sample, store}), Products());
    EXPECT_EQ(Texts{Found(2)}, log.Take());

    fs::remove(File("b"));
    Install("UpdatedStorePlugin", "m");
    EXPECT_EQ(Texts{updatedStore}, Products());
    EXPECT_EQ(Texts{Found(1)}, log.Take());

    fs::remove_all(folder.Path().Utf8());
    EXPECT_EQ(Texts(), Products());
    EXPECT_EQ(Texts{Critical("The product identifiers folder doesn't exist.")}, log.Take());
}

TEST_F(DiscoveryProductPluginsControllerTests, ARefusedQuestionLeavesTheProductOutAndIsTheLast)
{
    Install("StorePlugin", "store");
    for (const char* const question : {"1", "2", "3", "4"})
    {
        SCOPED_TRACE(question);
        Install(std::string("RefusingPlugin") + question, "refusing");
        LogRecorder log;

        EXPECT_EQ(Texts{store}, Products());
        const std::string reason = "Product infos DLL returned an error, product will be ignored. File : refusing";
        EXPECT_EQ((Texts{Found(2), Critical(reason + extension)}), log.Take());
        EXPECT_FALSE(IsLoaded(File("refusing")));
    }
}

TEST_F(DiscoveryProductPluginsControllerTests, WhatIsNoPluginIsLoggedAndLeftOut)
{
    Install("StorePlugin", "store");
    const auto expectFailure = [this](const std::string& name, const std::string& failure)
    {
        SCOPED_TRACE(name);
        LogRecorder log;
        EXPECT_EQ(Texts{store}, Products());
        const Texts rows = log.Take();
        ASSERT_EQ(3u, rows.size());
        EXPECT_EQ(Found(2), rows[0]);
        const std::string reason = Critical("GetLastError : ");
        EXPECT_TRUE(rows[1].starts_with(reason) && rows[1] != reason) << rows[1];
        EXPECT_TRUE(rows[2].ends_with("Exception caught in while getting product infos in DLL : " + name + extension));
        EXPECT_EQ(failure, log.LastFailure());
        EXPECT_FALSE(IsLoaded(File(name)));
        fs::remove(File(name));
    };
    folder.Write("text" + extension, std::string(1000, 'x'));
    expectFailure("text", "Could not load: " + File("text"));
    // The second one is linked with a library that has the export.
    for (const char* const plugin : {"NoEntryPointPlugin", "DependentPlugin"})
    {
        Install(plugin, "other");
        expectFailure("other", "Entry point not found: GetDiscoveryProductPlugin");
    }
}

TEST_F(DiscoveryProductPluginsControllerTests, TwoThreadsAskTheSamePluginsAndLeaveNothingBehind)
{
    Install("StorePlugin", "store");
    Install("RefusingPlugin3", "refusing");
    const auto ask = [this]
    {
        int wrong = 0;
        for (int round = 0; round < 100; ++round)
        {
            wrong += Products() == Texts{store} ? 0 : 1;
        }
        return wrong;
    };

    std::future<int> other = std::async(std::launch::async, ask);
    EXPECT_EQ(0, ask());
    EXPECT_EQ(0, other.get());

    EXPECT_FALSE(IsLoaded(File("store")) || IsLoaded(File("refusing")));
}
} // namespace Zelkor::Discovery::Client
