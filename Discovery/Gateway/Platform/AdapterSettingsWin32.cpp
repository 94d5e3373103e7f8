#include "AdapterSettings.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

constexpr int CommandSize = 256; ///< bytes of a command with its closing zero

/// Has the command interpreter run a command and waits for its end. The adapter's name goes in as it is: a double quote
/// in it breaks the quoting.
/// @returns its exit code, or -1 for a command that is too long
[[gnu::format(printf, 1, 2)]] int RunByInterpreter(const char* format, ...)
{
    char command[CommandSize];
    std::va_list arguments;
    va_start(arguments, format);
    const int length = std::vsnprintf(command, sizeof(command), format, arguments);
    va_end(arguments);
    return length >= 0 && length < CommandSize ? std::system(command) : -1;
}

} // namespace

SettingsOutcome ChangeAdapterSettings(const AdapterSettings& settings)
{
    const char* const name = settings.adapterName.c_str();
    RunByInterpreter("netsh interface ip set interface \"%s\" dadtransmits=0 store=active", name);
    SettingsOutcome outcome;
    outcome.error =
        RunByInterpreter("netsh interface ip set address \"%s\" static %s %s %s", name, settings.ipAddressText.c_str(),
                         settings.ipMaskText.c_str(), settings.gatewayText.c_str());
    return outcome;
}

} // namespace Zelkor::Discovery::Client::Platform
