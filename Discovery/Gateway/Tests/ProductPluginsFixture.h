#pragma once

#include <Discovery/Gateway/DiscoveryProductPluginsController.h>
#include <Discovery/Gateway/Platform/DynamicLibrary.h>
#include <Tests/Support/LogRecorder.h>
#include <Tests/Support/TemporaryFolder.h>

#include <filesystem>

namespace Zelkor::Discovery::Client
{
namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

/// True where this process holds a library, as the system tells.
bool IsLoaded(const std::string& path);

inline const std::string longName = "St\xC3\xB6re, with a name that is longer than what a text keeps within itself";
inline const std::string store = "Server|88|2.1|" + longName;
inline const std::string updatedStore = "Server|88|2.2|" + longName;

inline std::string Critical(const std::string& text)
{
    return "C ProductPluginsController: " + text;
}

/// A folder of plug-ins, and what the host announces of it.
class DiscoveryProductPluginsControllerTests : public FolderTest
{
protected:
    const std::string extension = Platform::LibraryExtension;

    std::string File(const std::string& name) const
    {
        return folder.Path(name + extension).Utf8();
    }

    /// Installs or updates a plug-in as a product does: at no moment there is half a file.
    void Install(const std::string& plugin, const std::string& name) const
    {
        fs::copy_file(fs::path(PRODUCT_PLUGINS) / (plugin + extension), folder.Path("new").Utf8());
        fs::rename(folder.Path("new").Utf8(), File(name));
    }

    Texts Products() const
    {
        const auto products = DiscoveryProductPluginsController(folder.Path()).GetProducts();
        Texts texts;
        for (const Tesmo::Sp<DiscoveryHostProduct>& product : *products)
        {
            texts.push_back(product->ProductType.Utf8() + "|" + product->ProductSerialNumber.Utf8() + "|" +
                            product->ProductVersion.Utf8() + "|" + product->ProductName.Utf8());
        }
        std::sort(texts.begin(), texts.end()); // folders have no order
        return texts;
    }
};
} // namespace Zelkor::Discovery::Client
