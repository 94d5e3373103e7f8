#pragma once

#include <Core/System/Collections/Generic/List.h>
#include <Core/System/Object.h>
#include <Core/System/Sp.h>
#include <Core/System/String.h>
#include <Discovery/Log/DiscoveryChannel.h>
#include <Discovery/Protocol/DiscoveryHostProduct.h>

#include <string>

namespace Zelkor::Discovery::Client
{
/// Asks the plug-ins in a folder which products are installed on this host; IDiscoveryProductPlugin.h is the contract
/// with them. Nothing is remembered between two calls, and nothing stays loaded but what the platform keeps because it
/// leaks (Platform/DynamicLibrary.h). Several objects may load the same libraries on several threads at once.
class DiscoveryProductPluginsController : public Tesmo::System::Object
{
public:
    /// @param pluginsFolder  the folder of the plug-ins; it need not exist
    explicit DiscoveryProductPluginsController(const Tesmo::System::String& pluginsFolder);

    /// Loads, asks and unloads each plug-in, in the order of the file system. One that fails is logged and left out.
    /// @returns one record for each plug-in that answered all questions, never null
    /// @throws Exception       the folder can't be scanned, for instance ArgumentException because its path is empty
    /// @throws std::exception  what a plug-in throws against its contract; the library stays loaded then. On Win32 it
    ///                         ends the process
    Tesmo::Sp<Tesmo::System::Collections::Generic::List<Tesmo::Sp<DiscoveryHostProduct>>> GetProducts() const;

private:
    void AddProduct(const Tesmo::System::String& name,
                    Tesmo::System::Collections::Generic::List<Tesmo::Sp<DiscoveryHostProduct>>& products) const;
    Tesmo::Sp<DiscoveryHostProduct> LoadProduct(const Tesmo::System::String& path) const;
    void Close(void* library, const Tesmo::System::String& path) const;
    void LogError(const std::string& error) const;

    Tesmo::System::String folder;
    DiscoveryChannel channel;
};
} // namespace Zelkor::Discovery::Client
