#include "ProductPluginsFixture.h"

namespace Zelkor::Discovery::Client
{
namespace
{
const std::string sample = "Sample|4711|1.0|Sample product";

std::string Found(int count)
{
    return "S ProductPluginsController: Found " + std::to_string(count) + " ProductInfos plugins.";
}

/// The bytes of a library, as if it were built for another processor architecture.
std::string OfOtherArchitecture(std::string library)
{
    const auto header = static_cast<unsigned char>(library[0x3C]); // IMAGE_DOS_HEADER::e_lfanew
    // ELFCLASS32; IMAGE_FILE_MACHINE_AMD64, IMAGE_NT_OPTIONAL_HDR64_MAGIC
    return library.starts_with("MZ") ? library.replace(header + 4, 2, "\x64\x86").replace(header + 24, 2, "\x0B\x02")
                                     : library.replace(4, 1, "\x01");
}
} // namespace

TEST_F(DiscoveryProductPluginsControllerTests, EachPluginIsAProductFromItsInstallationToItsRemoval)
{
    LogRecorder log;
    folder.Write("readme.txt", "no plug-in");
    fs::create_directory(File("folder"));
    Install("StorePlugin", "other");
    fs::rename(File("other"), File("other") + "_old"); // Win32 has a short name for it, which ends as a plug-in's
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
    folder.Write("empty", "");
    folder.Write("text", std::string(1000, 'x'));
    folder.Write("foreign", OfOtherArchitecture(folder.Read("store" + extension)));
    // The last one is linked with a library that has the export.
    for (const std::string name : {"UnresolvedPlugin", "NoEntryPointPlugin", "DependentPlugin"})
    {
        fs::copy_file(fs::path(PRODUCT_PLUGINS) / (name + extension), folder.Path(name).Utf8());
    }
    // winerror.h: ERROR_BAD_EXE_FORMAT, ERROR_MOD_NOT_FOUND, ERROR_PROC_NOT_FOUND
    const std::map<std::string, std::string> numbers = {{"empty", "193"},
                                                        {"text", "193"},
                                                        {"foreign", "193"},
                                                        {"UnresolvedPlugin", "126"},
                                                        {"NoEntryPointPlugin", "127"},
                                                        {"DependentPlugin", "127"}};
    for (const auto& [name, number] : numbers)
    {
        SCOPED_TRACE(name);
        fs::rename(folder.Path(name).Utf8(), File(name));
        LogRecorder log;
        EXPECT_EQ(Texts{store}, Products());
        const Texts rows = log.Take();
        ASSERT_EQ(3u, rows.size());
        EXPECT_EQ(Found(2), rows[0]);
        const std::string reason = Critical("GetLastError : ");
        ASSERT_TRUE(rows[1].starts_with(reason)) << rows[1];
        EXPECT_TRUE(extension == ".so" ? rows[1] != reason : rows[1] == reason + number) << rows[1];
        EXPECT_TRUE(rows[2].ends_with("Exception caught in while getting product infos in DLL : " + name + extension));
        EXPECT_EQ(number == "127" ? "Entry point not found: GetDiscoveryProductPlugin"
                                  : "Could not load: " + File(name),
                  log.LastFailure());
        EXPECT_FALSE(IsLoaded(File(name)));
        fs::rename(File(name), folder.Path(name).Utf8());
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
