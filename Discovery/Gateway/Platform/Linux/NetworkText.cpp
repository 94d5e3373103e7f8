#include "NetworkText.h"

#include "Ascii.h"
#include "LogicalLines.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <string_view>
#include <vector>

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

constexpr const char* Comment = "# Written by the Zelkor Discovery client, from the file that configured this adapter "
                                "before.\n";

/// A section; the lines before the first head are one without a name.
struct Section
{
    std::string name;
    std::vector<LogicalLine> lines; ///< the head among them
};

std::vector<Section> SplitSections(const std::string& text)
{
    std::vector<Section> sections(1);
    for (const LogicalLine& line : SplitLines(text))
    {
        if (line.text.starts_with('[') && line.text.ends_with(']'))
        {
            sections.push_back({line.text.substr(1, line.text.size() - 2), {}});
        }
        sections.back().lines.push_back(line);
    }
    return sections;
}

struct Assignment
{
    std::string key;
    std::string value;
};

/// The key is empty for a line that assigns nothing.
Assignment Parse(const LogicalLine& line)
{
    const std::size_t sign = line.text.find('=');
    if (IsComment(line) || sign == std::string::npos)
    {
        return {};
    }
    const std::vector<std::string> key = SplitWords(line.text.substr(0, sign));
    const std::vector<std::string> value = SplitWords(line.text.substr(sign + 1));
    return {key.empty() ? "" : key[0], value.empty() ? "" : value[0]};
}

/// The last value that a section gives to a key.
std::string Value(const Section& section, const std::string& key)
{
    std::string value;
    for (const LogicalLine& line : section.lines)
    {
        const Assignment assignment = Parse(line);
        value = assignment.key == key ? assignment.value : value;
    }
    return value;
}

/// Whether a value is an IPv4 address, with or without its prefix length, or stands for the gateway of a lease.
bool IsIPv4(const std::string& value)
{
    return value == "_dhcp4" || (value.find('.') != std::string::npos && value.find(':') == std::string::npos);
}

/// A switch that is a boolean or names an address family, with its IPv4 half turned off.
std::string WithoutIPv4(std::string value)
{
    std::transform(value.begin(), value.end(), value.begin(),
                   [](char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); });
    const std::string_view off = "no n false f off 0 none";
    const bool isOff = (" " + std::string(off) + " ").find(" " + value + " ") != std::string::npos;
    const bool isIPv4Alone = value.find('4') != std::string::npos;
    return isOff || isIPv4Alone ? "no" : "ipv6";
}

/// @returns the line as it shall be, empty to leave it out
std::string Rewrite(const LogicalLine& line)
{
    const auto [key, value] = Parse(line);
    if (key == "DHCP" || key == "LinkLocalAddressing")
    {
        return value.empty() ? line.raw : key + "=" + WithoutIPv4(value) + "\n";
    }
    const bool isAddress = key == "Address" && IsIPv4(value);
    const bool isGateway = key == "Gateway" && IsIPv4(value);
    return isAddress || isGateway || key == "DefaultRouteOnDevice" ? "" : line.raw;
}

bool IsIPv4Address(const Section& section)
{
    return section.name == "Address" && IsIPv4(Value(section, "Address"));
}

/// Whether a section is a default route of the main table; those of other tables serve rules.
bool IsIPv4DefaultRoute(const Section& section)
{
    const std::string destination = Value(section, "Destination");
    const std::string table = Value(section, "Table");
    return section.name == "Route" && (table.empty() || table == "main" || table == "254") &&
           (destination == "0.0.0.0/0" || (destination.empty() && IsIPv4(Value(section, "Gateway"))));
}

/// A section without what it says of IPv4; empty if only its head would be left.
std::string Rest(const Section& section)
{
    if (section.name.empty() || section.name == "Match" || IsIPv4Address(section) || IsIPv4DefaultRoute(section))
    {
        return {};
    }
    std::string rest;
    bool saysSomething = false;
    for (const LogicalLine& line : section.lines)
    {
        const std::string rewritten = section.name == "Network" ? Rewrite(line) : line.raw;
        saysSomething |= !rewritten.empty() && !line.text.empty() && &line != &section.lines.front();
        rest += rewritten;
    }
    return saysSomething ? rest : "";
}

} // namespace

std::string MatchOf(const std::string& adapter)
{
    std::string match;
    for (const char c : adapter)
    {
        if (c <= ' ' || c > '~' || std::strchr("!^]\\", c) != nullptr)
        {
            return {}; // special in brackets too, or not allowed in the file
        }
        const bool isPlain = IsLetterOrDigit(c) || std::strchr("._-", c) != nullptr;
        match += isPlain ? std::string(1, c) : std::string("[") + c + "]";
    }
    return match;
}

std::string MakeNetworkText(const std::string& text, const std::string& match, const AddressPlan& plan)
{
    std::string made = std::string(Comment) + "[Match]\nName=" + match + "\n\n";
    for (const Section& section : SplitSections(text))
    {
        made += Rest(section);
    }
    made += "[Network]\nAddress=" + plan.address + "/" + std::to_string(plan.prefixLength) + "\n";
    return plan.gateway.empty() ? made : made + "Gateway=" + plan.gateway + "\n";
}

} // namespace Zelkor::Discovery::Client::Platform
