#pragma once

namespace Tesmo::Platform
{
/// The running operating system.
struct HostSystem
{
    int platform; ///< as PlatformID numbers it: 2 Windows NT, 4 Unix
    int major;
    int minor;
    int build;
};

/// Any thread. Numbers that the system does not tell are 0.
HostSystem ReadHostSystem();
} // namespace Tesmo::Platform
