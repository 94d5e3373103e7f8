#pragma once

#include <Discovery/Gateway/Platform/AdapterSettings.h>
#include <Discovery/Gateway/Platform/Adapters.h>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

/// The host that the raw layer shows to the gateway's logic in these tests.
struct HostFake
{
    std::vector<Zelkor::Discovery::Client::Platform::Adapter> adapters; ///< none: the enumeration fails
    std::optional<std::string> hostName;                                ///< none: it can't be read
    std::optional<std::uint32_t> identityNumber;
    std::string programRoot;
    bool addressChange = false;
    int cancelResult = 0;
    int endedWatches = 0; ///< over addresses

    std::map<std::string, Zelkor::Discovery::Client::Platform::SettingsOutcome> outcomes; ///< by adapter; else success
    int nameResult = 0;
    int rebootResult = 0;
    std::vector<std::string> changes; ///< what was asked of the host, in order
};

/// The one that the raw layer shows; each test sets it up anew.
extern HostFake host;
