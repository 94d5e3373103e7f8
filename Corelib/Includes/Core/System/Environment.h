#pragma once

#include <Core/System/OperatingSystem.h>
#include <Core/System/String.h>

namespace Tesmo::System
{
/// The surroundings of the program. What comes from environment variables is empty where they are not set.
class Environment
{
public:
    Environment() = delete;

    /// The line end in files and reports, CR LF on every platform.
    static const String& NewLine();

    /// Ends the process.
    [[noreturn]] static void Exit(int code);

    static String MachineName();           ///< COMPUTERNAME
    static String UserName();              ///< USERNAME
    static String UserDomainName();        ///< USERDOMAIN
    static String ProcessorArchitecture(); ///< PROCESSOR_ARCHITECTURE
    static int ProcessorCount();           ///< NUMBER_OF_PROCESSORS; 1 where it is no number
    static bool Is64BitProcess();          ///< of this program, not of the system under it

    /// The running operating system.
    static const OperatingSystem& OSVersion();
};
} // namespace Tesmo::System
