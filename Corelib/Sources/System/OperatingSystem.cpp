#include <Core/System/OperatingSystem.h>

#include <Core/System/ArgumentException.h>
#include <Core/System/ArgumentNullException.h>
#include <Core/System/Checks.h>

namespace Tesmo::System
{
namespace
{
const char* const names[] = {"<Unknown>",
                             "Microsoft Win32S",
                             "Microsoft Windows 98",
                             "Microsoft Windows NT",
                             "Microsoft Windows CE",
                             "Unix",
                             "Xbox",
                             "Mac OS X",
                             "IOs",
                             "Android"};

bool HasServicePacks(PlatformID platform)
{
    return platform >= PlatformID::Win32S && platform <= PlatformID::Xbox;
}
} // namespace

OperatingSystem::OperatingSystem(PlatformID hostPlatform, const System::Version& hostVersion) : platform(hostPlatform)
{
    if (platform < PlatformID::Unknown || platform > PlatformID::Android)
    {
        throw ArgumentException(ThrowSite);
    }
    version = hostVersion;
    if (HasServicePacks(platform) && version.Build() % 10 != 0) // by the build's last digit: required
    {
        servicePack = String::Format("Service Pack {0}", version.Minor() % 10);
    }
}

String OperatingSystem::ToString() const
{
    const auto row = static_cast<std::size_t>(static_cast<int>(platform) - static_cast<int>(PlatformID::Unknown));
    return String::Format("{0} {1} {2}", names[row], version, servicePack).TrimEnd(' ');
}
} // namespace Tesmo::System
