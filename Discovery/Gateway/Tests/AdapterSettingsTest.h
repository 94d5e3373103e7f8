#pragma once

#include <Discovery/Gateway/Platform/AdapterSettings.h>
#include <Tests/Support/Commands.h>
#include <Tests/Support/ManagedHost.h>
#include <Tests/Support/PrivateHost.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>

/// Two adapters in the hands of a real manager: v0 with two addresses and a gateway, v1 with one address.
class AdapterSettingsTests : public testing::TestWithParam<Manager>
{
protected:
    using AdapterSettings = Zelkor::Discovery::Platform::AdapterSettings;

    void SetUp() override;

    /// What shell commands write to their standard output.
    static std::string Output(const std::string& commands);

    /// Adds an Ethernet adapter that is up and has a cable.
    static void AddAdapter(const std::string& name);

    /// IPv4 addresses in ascending order, and gateways.
    static std::string State(const std::string& name);

    /// Expects the state within ten seconds.
    static void Await(const std::string& name, const std::string& state);

    /// Everything that managers keep, and every file beside it.
    static std::string Files();

    /// Both steps of a change, each within its limit.
    /// @returns 0, or the error
    static int Apply(const AdapterSettings& settings, std::string& remark);

    static void ExpectApplied(const AdapterSettings& settings, const std::string& state);

    /// A change that fails and leaves the adapter's addresses as they were.
    /// @returns the reason
    static std::string Refusal(const AdapterSettings& settings);

    /// Likewise, and leaves every file as it was.
    static std::string RefusalWithoutTrace(const AdapterSettings& settings);

    PrivateHost host;
    std::unique_ptr<ManagedHost> managed;

private:
    static inline int peers = 0;
};

std::string NameOf(const testing::TestParamInfo<Manager>& info);
