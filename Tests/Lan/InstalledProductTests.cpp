#include "LanTest.h"

#include <csignal>
#include <filesystem>
#include <fstream>
#include <map>

namespace Lan
{
namespace
{
namespace fs = std::filesystem;

std::string ProductJson(const std::string& type, const std::string& serialNumber, const std::string& version,
                        const std::string& name)
{
    return R"({"ProductType":")" + type + R"(","ProductSerialNumber":")" + serialNumber + R"(","ProductVersion":")" +
           version + R"(","ProductName":")" + name + R"("})";
}
} // namespace

class InstalledProductTests : public LanTest
{
protected:
    void SetUp() override
    {
        LanTest::SetUp();
        fs::create_directory(plugins);
    }

    /// @param answer  the product's record on the wire; empty for a plug-in that is left out
    void Install(const std::string& name, const std::string& plugin, const std::string& answer)
    {
        fs::copy_file(fs::path(PRODUCT_PLUGINS) / (plugin + ".so"), plugins / name);
        answers[name] = answer;
    }

    void WriteInfos(const std::string& text) const
    {
        std::ofstream(infos, std::ios::binary) << text;
    }

    /// The announcement of the host with what is installed now, products in the order of the folder.
    std::string Expected(const std::string& type, const std::string& infosJson)
    {
        std::string products;
        for (const fs::directory_entry& entry : fs::directory_iterator(plugins))
        {
            const std::string& answer = answers[entry.path().filename()];
            products += (products.empty() || answer.empty() ? "" : ",") + answer;
        }
        const std::string none = R"("Products":[])";
        std::string text = Announcement(type, "True", {lan0}, &lan0);
        return text.replace(text.find(none), none.size(), R"("Products":[)" + products + "]" + infosJson);
    }

    const fs::path plugins = folders.Discovery() / "ProductIDs";
    const fs::path infos = folders.Discovery() / "FileTransferInfos.json";
    std::map<std::string, std::string> answers;
};

TEST_F(InstalledProductTests, EachAnnouncementShowsWhatIsInstalledThen)
{
    const std::string name =
        "St\x94re, with a name that is longer than what a text keeps within itself"; // code page 437
    Install("sample.so", "SampleProductPlugin", ProductJson("Sample", "4711", "1.0", "Sample product"));
    Install("store.so", "StorePlugin", ProductJson("Server", "88", "2.1", name));
    Install("refusing.so", "RefusingPlugin2", "");
    Install("broken.so", "UnresolvedPlugin", "");
    WriteInfos("{\r\n  \"Server\": \"10.0.0.5\"\r\n}\r\n");
    StartClient();

    ExpectHeard(Expected("Hello", R"(,"FileTransferInfos":{"Server":"10.0.0.5"})"));
    const std::string broken = "/opt/Zelkor/Common/Discovery/ProductIDs/broken.so";
    for (const std::string& row :
         {std::string("Found 4 ProductInfos plugins."),
          "GetLastError : " + broken + ": undefined symbol: MissingDependency",
          "Exception caught in while getting product infos in DLL : broken.so: Could not load: " + broken +
              ", location: ",
          std::string("Product infos DLL returned an error, product will be ignored. File : refusing.so")})
    {
        EXPECT_EQ(2, client->Logged(row)) << "a hello takes two snapshots: " << row;
    }

    fs::remove(plugins / "store.so");
    Install("updated.so", "UpdatedStorePlugin", ProductJson("Server", "88", "2.2", name));
    WriteInfos("{");
    station->Say(Request("AllSendYourSignature", "True"), "255.255.255.255", "wall0");
    ExpectHeard(Expected("SignatureBroadcast", ""));
    EXPECT_EQ(1, client->Logged("Aborting GetFileTransferInfos : exception caught in GetFTPInfos !"));
    ExpectCleanStop();
}

TEST_F(InstalledProductTests, AFileOfInfosThatNoDatagramCarriesDoesNotSilenceTheHost)
{
    WriteInfos(R"({"Server":"10.0.0.5"})");
    fs::resize_file(infos, 50'000'000);
    StartClient();

    ExpectHeard(Expected("Hello", ""));
    EXPECT_EQ(2, client->Logged("Aborting GetFileTransferInfos : exception caught in GetFTPInfos !"));
    ExpectCleanStop();
}
} // namespace Lan
