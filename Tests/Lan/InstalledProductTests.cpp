#include "LanTest.h"

#include <filesystem>
#include <fstream>
#include <map>

namespace Lan
{
namespace fs = std::filesystem;

class InstalledProductTests : public LanTest
{
};

TEST_F(InstalledProductTests, AnAnnouncementShowsWhatIsInstalled)
{
    const auto product = [](const std::string& type, const std::string& serialNumber, const std::string& version,
                            const std::string& name)
    {
        return R"({"ProductType":")" + type + R"(","ProductSerialNumber":")" + serialNumber +
               R"(","ProductVersion":")" + version + R"(","ProductName":")" + name + R"("})";
    };
    const std::string name = // in code page 437
        "St\x94re, with a name that is longer than what a text keeps within itself";
    std::map<std::string, std::string> answers = {
        {"SampleProductPlugin", product("Sample", "4711", "1.0", "Sample product")},
        {"StorePlugin", product("Server", "88", "2.1", name)},
        {"RefusingPlugin2", ""},
        {"UnresolvedPlugin", ""}};
    const fs::path plugins = folders.Discovery() / "ProductIDs";
    for (const auto& [plugin, answer] : answers)
    {
        fs::copy_file(fs::path(PRODUCT_PLUGINS) / (plugin + ".so"), plugins / (plugin + ".so"));
    }
    std::string products; // in the order of the folder
    for (const fs::directory_entry& entry : fs::directory_iterator(plugins))
    {
        const std::string& answer = answers[entry.path().stem()];
        products += (products.empty() || answer.empty() ? "" : ",") + answer;
    }
    std::ofstream(folders.Discovery() / "FileTransferInfos.json") << "{\r\n  \"Server\": \"10.0.0.5\"\r\n}\r\n";
    StartClient();

    const std::string none = R"("Products":[])";
    std::string text = Announcement("Hello", "True", {lan0}, &lan0);
    ExpectHeard(text.replace(text.find(none), none.size(),
                             R"("Products":[)" + products + R"(],"FileTransferInfos":{"Server":"10.0.0.5"})"));
    for (const char* const row : {"Found 4 ProductInfos plugins.", "UnresolvedPlugin.so: undefined symbol: Missing",
                                  "Product infos DLL returned an error, product will be ignored."})
    {
        EXPECT_EQ(2, client->Logged(row)) << "a hello takes two snapshots: " << row;
    }
    ExpectCleanStop();
}
} // namespace Lan
