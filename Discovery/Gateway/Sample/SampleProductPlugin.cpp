// A plug-in by which a product shows itself in the announcements of its host: the pattern for a plug-in of your own.
// The header tells the whole contract; docs/plugins.md tells how to build and install a plug-in.
#include <Discovery/Gateway/IDiscoveryProductPlugin.h>

#include <cstdint>
#include <exception>
#include <string>
#include <type_traits>

namespace
{
using Zelkor::Discovery::Client::IDiscoveryProductPlugin;

constexpr std::int32_t Success = 0;
constexpr std::int32_t Failure = 1; // any value but 0: the product is left out

/// Fills in an answer. No exception may leave a plug-in, and assigning a text can fail for want of memory.
std::int32_t Answer(std::string& text, const char* answer)
{
    try
    {
        text = answer;
        return Success;
    }
    catch (const std::exception&)
    {
        return Failure;
    }
}

class SampleProductPlugin final : public IDiscoveryProductPlugin
{
public:
    std::int32_t GetProductType(std::string& text) override
    {
        return Answer(text, "Sample");
    }

    std::int32_t GetProductSerialNumber(std::string& text) override
    {
        return Answer(text, "4711");
    }

    std::int32_t GetProductVersion(std::string& text) override
    {
        return Answer(text, "1.0");
    }

    std::int32_t GetProductName(std::string& text) override
    {
        return Answer(text, "Sample product");
    }
};

// The client gives the memory back without calling a destructor.
static_assert(std::is_trivially_destructible_v<SampleProductPlugin>);
} // namespace

IDiscoveryProductPlugin* GetDiscoveryProductPlugin()
{
    return new SampleProductPlugin();
}
