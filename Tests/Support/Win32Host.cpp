#include "Win32Host.h"

#include "Commands.h"

constexpr const char* HostScript = PROJECT_FOLDER "/Tests/Win32/host";
constexpr const char* ClientScript = PROJECT_FOLDER "/Tests/Win32/client";

bool Win32Host::IsBuilt()
{
    return std::filesystem::exists(PROJECT_FOLDER "/build/win32/bin/DiscoveryClient.exe") &&
           std::filesystem::exists(PROJECT_FOLDER "/build/win32-host/stamp");
}

Win32Host::Win32Host(PrivateHost& host)
    : process(
          host.Start({"env", "WIN32_HOST_NAME=STUDIO4", HostScript, ClientScript, "install", AboveLogs(), Discovery()}))
{
}

void Win32Host::BecomeProgram() const noexcept
{
    ReplaceBy({HostScript, "--join", std::to_string(process), ClientScript, "run"});
}
