#pragma once

#include <Discovery/Gateway/Platform/Adapters.h>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// The host that the raw layer shows to the gateway's logic in these tests.
struct HostFake
{
    std::vector<Zelkor::Discovery::Platform::Adapter> adapters; ///< none: the enumeration fails
    std::optional<std::string> hostName;                        ///< none: it can't be read
    std::optional<std::uint32_t> identityNumber;
    std::string programRoot;
    bool addressChange = false;
    int cancelResult = 0;
};

/// The one that the raw layer shows; each test sets it up anew.
extern HostFake host;
