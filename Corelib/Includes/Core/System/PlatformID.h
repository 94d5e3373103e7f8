#pragma once

namespace Tesmo::System
{
/// Families of operating systems.
enum class PlatformID
{
    Unknown = -1,
    Win32S = 0,
    Win32Windows = 1,
    Win32NT = 2,
    WinCE = 3,
    Unix = 4,
    Xbox = 5,
    MacOSX = 6,
    IOs = 7,
    Android = 8,
};
} // namespace Tesmo::System
