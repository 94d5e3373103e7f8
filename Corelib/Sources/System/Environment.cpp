#include <Core/System/Environment.h>

#include <Core/System/Int32.h>

#include <Platform/HostSystem.h>

#include <algorithm>
#include <cstdlib>

namespace Tesmo::System
{
namespace
{
String Variable(const char* name)
{
    const char* const text = std::getenv(name);
    return text == nullptr ? String() : String(text);
}

Version VersionOf(const Platform::HostSystem& host)
{
    return Version(std::max(host.major, 0), std::max(host.minor, 0), std::max(host.build, 0));
}

OperatingSystem ReadSystem()
{
    const Platform::HostSystem host = Platform::ReadHostSystem();
    return OperatingSystem(static_cast<PlatformID>(host.platform), VersionOf(host));
}
} // namespace

const String& Environment::NewLine()
{
    static const String text("\r\n");
    return text;
}

void Environment::Exit(int code)
{
    std::exit(code);
}

String Environment::MachineName()
{
    return Variable("COMPUTERNAME");
}

String Environment::UserName()
{
    return Variable("USERNAME");
}

String Environment::UserDomainName()
{
    return Variable("USERDOMAIN");
}

String Environment::ProcessorArchitecture()
{
    return Variable("PROCESSOR_ARCHITECTURE");
}

int Environment::ProcessorCount()
{
    int count = 1;
    Int32::TryParse(Variable("NUMBER_OF_PROCESSORS"), count);
    return count;
}

bool Environment::Is64BitProcess()
{
    return sizeof(void*) == 8;
}

const OperatingSystem& Environment::OSVersion()
{
    static const OperatingSystem system = ReadSystem();
    return system;
}
} // namespace Tesmo::System
