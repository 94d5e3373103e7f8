#include "ProbeOptions.h"

#include <Core/System/ArgumentException.h>
#include <Core/System/Int32.h>

namespace Zelkor::Discovery::Tools
{
using Tesmo::System::ArgumentException, Tesmo::System::Int32, Tesmo::System::String, Tesmo::System::Net::IPAddress;

const char* ProbeOptions::Usage()
{
    return "DiscoveryProbe: the administration side of the discovery protocol, for people and tests.\n"
           "Listens on UDP port 12001 and prints what hosts say; sends a request first if one is named.\n"
           "\n"
           "  DiscoveryProbe [options] [request]\n"
           "\n"
           "requests\n"
           "  all                                   every host sends its signature\n"
           "  signature [MAC]                       the host with this hardware address, or the one named by --to\n"
           "  ipconfig MAC ADDRESS MASK [GATEWAY]   changes the adapter with this hardware address\n"
           "  hostname NAME [MAC]                   changes the name of that host, or of the one named by --to\n"
           "\n"
           "options\n"
           "  --to ADDRESS    sends to this host alone; its answer comes to this host alone\n"
           "  --from ADDRESS  sends from this local address, and so by its adapter\n"
           "  --seconds N     ends after N seconds (3 with a request, never without)\n"
           "  --json          one JSON object a line: time, sender, message\n"
           "  --help          this text\n";
}

ProbeOptions ProbeOptions::Parse(const std::vector<std::string>& words)
{
    ProbeOptions options;
    bool secondsGiven = false;
    for (std::size_t index = 0; index < words.size(); ++index)
    {
        const std::string& word = words[index];
        const auto value = [&]
        {
            if (index + 1 == words.size())
            {
                throw ArgumentException(String(word + " needs a value"), ThrowSite);
            }
            return String(words[++index]);
        };
        if (word == "--help")
        {
            options.help = true;
        }
        else if (word == "--json")
        {
            options.json = true;
        }
        else if (word == "--seconds")
        {
            options.seconds = Int32::Parse(value());
            secondsGiven = true;
        }
        else if (word == "--to")
        {
            options.to = IPAddress::Parse(value());
        }
        else if (word == "--from")
        {
            options.from = IPAddress::Parse(value());
        }
        else if (word.starts_with("--"))
        {
            throw ArgumentException(String("unknown option " + word), ThrowSite);
        }
        else if (options.request.empty())
        {
            options.request = word;
        }
        else
        {
            options.arguments.push_back(String(word));
        }
    }
    if (!secondsGiven && !options.request.empty())
    {
        options.seconds = 3;
    }
    return options;
}
} // namespace Zelkor::Discovery::Tools
