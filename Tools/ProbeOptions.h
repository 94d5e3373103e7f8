#pragma once

#include <Core/System/Net/IPAddress.h>
#include <Core/System/String.h>

#include <string>
#include <vector>

namespace Zelkor::Discovery::Tools
{
/// What the command line asks of the probe.
struct ProbeOptions
{
    bool help = false;
    bool json = false;                  ///< one JSON object a line instead of text for people
    int seconds = 0;                    ///< how long to listen; 0 for ever
    Tesmo::System::Net::IPAddress from; ///< local address to send from; 255.255.255.255 for any
    Tesmo::System::Net::IPAddress to;   ///< where the request goes; 255.255.255.255 for everybody
    std::string request;                ///< "all", "signature", "ipconfig", "hostname", or empty to listen only
    std::vector<Tesmo::System::String> arguments; ///< what follows the request

    /// Text of --help.
    static const char* Usage();

    /// Reads the command line without the program's name.
    /// @throws ArgumentException  an unknown option, or an option without its value
    /// @throws FormatException    a value that is no number or no address
    static ProbeOptions Parse(const std::vector<std::string>& words);
};
} // namespace Zelkor::Discovery::Tools
