#include "DiscoveryProductPluginsController.h"

#include "IDiscoveryProductPlugin.h"

#include <Core/System/BadImageFormatException.h>
#include <Core/System/EntryPointNotFoundException.h>
#include <Core/System/IO/DirectoryInfo.h>
#include <Core/System/IO/FileInfo.h>
#include <Core/System/IO/Path.h>
#include <Core/System/ThrowSite.h>
#include <Discovery/Gateway/Platform/DynamicLibrary.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <new>
#include <string>
#include <vector>

namespace Zelkor::Discovery::Client
{
using Tesmo::null, Tesmo::Sp, Tesmo::System::BadImageFormatException, Tesmo::System::EntryPointNotFoundException,
    Tesmo::System::Exception, Tesmo::System::String, Tesmo::System::Collections::Generic::List,
    Tesmo::System::IO::DirectoryInfo, Tesmo::System::IO::FileInfo, Tesmo::System::IO::Path;

namespace
{
using EntryPoint = decltype(&GetDiscoveryProductPlugin);
constexpr char EntryPointName[] = "GetDiscoveryProductPlugin";

using Question = std::int32_t (IDiscoveryProductPlugin::*)(std::string&);
constexpr Question Questions[] = {
    &IDiscoveryProductPlugin::GetProductType, &IDiscoveryProductPlugin::GetProductSerialNumber,
    &IDiscoveryProductPlugin::GetProductVersion, &IDiscoveryProductPlugin::GetProductName};

/// In the order of the questions.
using Answers = std::array<std::string, std::size(Questions)>;

/// In the order of the file system.
std::vector<String> PluginNames(const DirectoryInfo& folder)
{
    const String extension(Platform::LibraryExtension);
    std::vector<String> names;
    for (const FileInfo& file : folder.GetFiles("*" + extension))
    {
        if (const String name = file.Name(); name.EndsWith(extension, true)) // Win32 finds files by short names, too
        {
            names.push_back(name);
        }
    }
    return names;
}

/// Releases the memory alone, as the contract says: no destructor runs.
struct MemoryRelease
{
    void operator()(IDiscoveryProductPlugin* plugin) const
    {
        ::operator delete(plugin);
    }
};

/// Asks the questions in turn, up to the first that is refused.
/// @returns whether none was refused
bool Ask(EntryPoint entryPoint, Answers& answers)
{
    const std::unique_ptr<IDiscoveryProductPlugin, MemoryRelease> plugin(entryPoint());
    for (std::size_t i = 0; i < answers.size(); ++i)
    {
        if ((*plugin.*Questions[i])(answers[i]) != 0)
        {
            return false;
        }
    }
    return true;
}
} // namespace

DiscoveryProductPluginsController::DiscoveryProductPluginsController(const String& pluginsFolder)
    : folder(pluginsFolder),
      channel("ProductPluginsController")
{
}

Sp<List<Sp<DiscoveryHostProduct>>> DiscoveryProductPluginsController::GetProducts() const
{
    Sp<List<Sp<DiscoveryHostProduct>>> products(new List<Sp<DiscoveryHostProduct>>());
    Platform::UnloadReplacedLibraries();
    const DirectoryInfo directory(folder);
    if (!directory.Exists())
    {
        channel.Critical("The product identifiers folder doesn't exist.");
        return products;
    }
    const std::vector<String> names = PluginNames(directory);
    if (names.empty())
    {
        return products;
    }
    channel.Standard(String("Found " + std::to_string(names.size()) + " ProductInfos plugins."));
    for (const String& name : names)
    {
        AddProduct(name, *products);
    }
    return products;
}

void DiscoveryProductPluginsController::AddProduct(const String& name, List<Sp<DiscoveryHostProduct>>& products) const
{
    try
    {
        const Sp<DiscoveryHostProduct> product = LoadProduct(Path::Combine(folder, name));
        if (product == null)
        {
            channel.Critical("Product infos DLL returned an error, product will be ignored. File : " + name);
            return;
        }
        products.Add(product);
    }
    catch (const Exception& failure)
    {
        channel.Critical("Exception caught in while getting product infos in DLL : " + name, failure);
    }
}

/// @returns null if the plug-in refused a question
Sp<DiscoveryHostProduct> DiscoveryProductPluginsController::LoadProduct(const String& path) const
{
    const Platform::Library library = Platform::OpenLibrary(path.Utf8());
    if (library == nullptr)
    {
        LogError(Platform::LastLibraryError());
        throw BadImageFormatException("Could not load: " + path, ThrowSite);
    }
    const auto entryPoint = reinterpret_cast<EntryPoint>(Platform::FindFunction(library, EntryPointName));
    if (entryPoint == nullptr)
    {
        const std::string error = Platform::LastLibraryError();
        Close(library, path);
        LogError(error);
        throw EntryPointNotFoundException(String("Entry point not found: ") + EntryPointName, ThrowSite);
    }
    Answers answers; // outlive the library
    // A plug-in that throws stays: its exception is code and data of the library (decision 144).
    const bool hasAnswered = Ask(entryPoint, answers);
    Close(library, path);
    if (!hasAnswered)
    {
        return {};
    }
    const auto& [type, serialNumber, version, name] = answers;
    return Sp<DiscoveryHostProduct>(
        new DiscoveryHostProduct(String(type), String(serialNumber), String(version), String(name)));
}

void DiscoveryProductPluginsController::Close(void* library, const String& path) const
{
    if (Platform::CloseLibrary(library) == Platform::LibraryCost::ThreadLocalIndexes)
    {
        channel.Critical("Product infos DLL takes a thread-local index at each load and never gives it back, "
                         "it stays loaded from now on. File : " +
                         path);
    }
}

void DiscoveryProductPluginsController::LogError(const std::string& error) const
{
    channel.Critical(String("GetLastError : " + error));
}
} // namespace Zelkor::Discovery::Client
