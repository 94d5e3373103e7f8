#pragma once

#include <Discovery/Gateway/Platform/Adapters.h>
#include <cstdint>
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

    int probesResult = 0;
    int settingsResult = 0; ///< of the adapter that refuses, or of all while refusingAdapter is empty
    std::string refusingAdapter;
    std::string remark; ///< told of every setting
    int nameResult = 0;
    int rebootResult = 0;
    std::vector<std::string> changes; ///< what was asked of the host, in order
};

/// The one that the raw layer shows; each test sets it up anew.
extern HostFake host;
