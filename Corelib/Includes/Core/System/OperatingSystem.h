#pragma once

#include <Core/System/Object.h>
#include <Core/System/PlatformID.h>
#include <Core/System/String.h>
#include <Core/System/Version.h>

namespace Tesmo::System
{
/// An operating system with its version.
class OperatingSystem : public Object
{
public:
    /// @throws ArgumentException      platform is no member of its enumeration
    /// @throws ArgumentNullException  version is null
    OperatingSystem(PlatformID platform, const Version& version);

    /// Platform and version as given; the service pack follows from the numbers of the version.
    PlatformID Platform() const
    {
        return platform;
    }
    const String& ServicePack() const ///< empty for none
    {
        return servicePack;
    }
    const System::Version& Version() const
    {
        return version;
    }

    /// Name, version and service pack.
    String ToString() const override;

private:
    PlatformID platform;
    String servicePack;
    System::Version version;
};
} // namespace Tesmo::System
