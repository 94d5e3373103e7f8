#include "NetworkManager.h"

#include "LogicalLines.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <sstream>
#include <systemd/sd-id128.h>

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

constexpr const char* Service = "org.freedesktop.NetworkManager"; // also an interface
constexpr const char* ServicePath = "/org/freedesktop/NetworkManager";
constexpr const char* DeviceInterface = "org.freedesktop.NetworkManager.Device";
constexpr const char* ActiveInterface = "org.freedesktop.NetworkManager.Connection.Active";

constexpr std::uint32_t EthernetType = 1;      // nm-dbus-interface.h: NM_DEVICE_TYPE_ETHERNET
constexpr std::uint32_t VethType = 20;         // NM_DEVICE_TYPE_VETH
constexpr std::uint32_t UnavailableState = 20; // NM_DEVICE_STATE_UNAVAILABLE: without carrier

constexpr std::size_t UuidLength = 36; // characters

constexpr int NotFoundCode = 10; // nmcli(1): no such profile, or it is not in use

using Words = std::vector<std::string>;

/// A call of nmcli that answers with the bare values.
Words Nmcli(Words arguments, const Words& more = {})
{
    arguments.insert(arguments.begin(), {"nmcli", "--escape", "no"});
    arguments.insert(arguments.end(), more.begin(), more.end());
    return arguments;
}

/// In the main table; those of other tables serve rules.
bool IsDefaultRoute(const std::string& route)
{
    const Words words = SplitWords(route);
    return !words.empty() && words[0].ends_with("/0") &&
           std::none_of(words.begin(), words.end(),
                        [](const std::string& word) { return word.starts_with("table=") && word != "table=254"; });
}

/// @param routes  parted by commas, as nmcli tells and takes them
std::string WithoutDefaultRoutes(const std::string& routes)
{
    std::istringstream stream(routes);
    std::string kept;
    for (std::string route; std::getline(stream, route, ',');)
    {
        kept += IsDefaultRoute(route) ? "" : (kept.empty() ? "" : ",") + route;
    }
    return kept;
}

/// What the profile says of IPv4 while the system runs. Its former addresses and gateways are replaced.
/// @param routes  the former ones
Words Settings(const AddressPlan& plan, const std::string& routes)
{
    return {"ipv4.routes",        WithoutDefaultRoutes(routes),
            "ipv4.method",        "manual",
            "ipv4.addresses",     plan.address + "/" + std::to_string(plan.prefixLength),
            "ipv4.gateway",       plan.gateway,
            "ipv4.never-default", "no",
            "ipv4.dad-timeout",   "0"};
}

bool IsUuid(const std::string& line)
{
    return line.size() == UuidLength && line.find_first_not_of("0123456789abcdef-") == std::string::npos;
}

/// A UUID that no profile has.
std::string MakeUuid()
{
    sd_id128_t id = {};
    sd_id128_randomize(&id);
    std::array<char, UuidLength + 1> text = {};
    std::snprintf(text.data(), text.size(), SD_ID128_UUID_FORMAT_STR, SD_ID128_FORMAT_VAL(id));
    return text.data();
}

Words SplitOutput(const std::string& output)
{
    std::istringstream stream(output);
    Words lines;
    for (std::string line; std::getline(stream, line);)
    {
        lines.push_back(line);
    }
    return lines;
}

/// Takes a profile away, or off its adapter; done as well where it was not there.
Failure Drop(const Words& request, Deadline deadline)
{
    const CommandResult result = RunCommand(Nmcli(request), deadline);
    return result.code == 0 || result.code == NotFoundCode
               ? ""
               : "nmcli does not take the profile away: " + OneLine(result.output);
}

} // namespace

std::string NetworkManager::Name() const
{
    return "NetworkManager";
}

bool NetworkManager::NeedsCarrier() const
{
    return true;
}

Ownership NetworkManager::Owns(const std::string& adapter, Deadline deadline)
{
    SystemBus bus(deadline);
    if (const Ownership runs = Runs(bus, Service); runs != Ownership::Yes)
    {
        return runs;
    }
    BusMessage reply;
    BusMessage property;
    const char* path = nullptr;
    int isManaged = 0;
    if (bus.Call(Service, ServicePath, Service, "GetDeviceByIpIface", reply, "s", adapter.c_str()) != 0)
    {
        const bool isStranger = bus.LastErrorName() == "org.freedesktop.NetworkManager.UnknownDevice";
        return isStranger ? Ownership::No : Ownership::Unknown;
    }
    if (sd_bus_message_read(reply.get(), "o", &path) < 0 ||
        bus.ReadProperty(Service, path, DeviceInterface, "Managed", "b", property) != 0 ||
        sd_bus_message_read(property.get(), "b", &isManaged) < 0)
    {
        return Ownership::Unknown;
    }
    ReadDevice(bus, path);
    return isManaged != 0 ? Ownership::Yes : Ownership::No;
}

void NetworkManager::ReadDevice(SystemBus& bus, const char* path)
{
    BusMessage reply;
    const char* active = nullptr;
    const char* uuid = nullptr;
    if (bus.ReadProperty(Service, path, DeviceInterface, "DeviceType", "u", reply) == 0)
    {
        sd_bus_message_read(reply.get(), "u", &type);
    }
    if (bus.ReadProperty(Service, path, DeviceInterface, "State", "u", reply) == 0)
    {
        sd_bus_message_read(reply.get(), "u", &state);
    }
    BusMessage profileReply;
    if (bus.ReadProperty(Service, path, DeviceInterface, "ActiveConnection", "o", reply) == 0 &&
        sd_bus_message_read(reply.get(), "o", &active) >= 0 && std::strcmp(active, "/") != 0 &&
        bus.ReadProperty(Service, active, ActiveInterface, "Uuid", "s", profileReply) == 0 &&
        sd_bus_message_read(profileReply.get(), "s", &uuid) >= 0)
    {
        profile = uuid;
        isActive = true;
    }
}

Failure NetworkManager::DisableProbes(const std::string& adapter, Deadline deadline)
{
    return isActive ? Run(Nmcli({"device", "modify", adapter, "ipv4.dad-timeout", "0"}), deadline) : "";
}

/// The first profile that names the adapter.
Failure NetworkManager::FindProfile(const std::string& adapter, Deadline deadline)
{
    Words request = Nmcli({"-g", "connection.uuid,connection.interface-name", "connection", "show"});
    for (const std::string& line :
         SplitOutput(RunCommand(Nmcli({"-g", "UUID", "connection", "show"}), deadline).output))
    {
        if (IsUuid(line))
        {
            request.insert(request.end(), {"uuid", line});
        }
    }
    if (request.back() == "show")
    {
        return {};
    }
    const CommandResult profiles = RunCommand(request, deadline);
    const Words lines = SplitOutput(profiles.output);
    for (std::size_t i = 1; i < lines.size() && profile.empty(); ++i)
    {
        profile = lines[i] == adapter && IsUuid(lines[i - 1]) ? lines[i - 1] : "";
    }
    return profiles.code == 0 ? "" : "nmcli does not list the profiles: " + OneLine(profiles.output);
}

Failure NetworkManager::AddProfile(const AddressPlan& plan, Deadline deadline)
{
    if (type != EthernetType && type != VethType)
    {
        return "the adapter has no profile and is no Ethernet adapter";
    }
    profile = MakeUuid();
    isAdded = true;   // may be so even if nmcli fails or takes too long
    probeTime = "-1"; // the default
    return Run(Nmcli({"connection", "add", "save", "no", "type", "ethernet", "ifname", plan.adapter, "con-name",
                      "Zelkor " + plan.adapter, "connection.uuid", profile},
                     Settings(plan, "")),
               deadline);
}

/// What the profile says before the change, as nmcli takes it back.
Failure NetworkManager::ReadProfile(const AddressPlan& plan, Deadline deadline)
{
    const Words settings = Settings(plan, "");
    std::string properties;
    for (std::size_t i = 0; i < settings.size(); i += 2)
    {
        properties += (i == 0 ? "" : ",") + settings[i];
    }
    const CommandResult shown = RunCommand(Nmcli({"-g", properties, "connection", "show", "uuid", profile}), deadline);
    Words values = SplitOutput(shown.output);
    std::erase_if(values, [](const std::string& line) { return line.starts_with("Warning"); });
    if (shown.code != 0 || values.size() * 2 != settings.size())
    {
        return "nmcli does not show the profile: " + OneLine(shown.output);
    }
    for (std::size_t i = 0; i < values.size(); ++i)
    {
        former.insert(former.end(), {settings[2 * i], values[i]});
    }
    former.back() = former.back().substr(0, former.back().find(' ')); // "-1 (default)"
    probeTime = former.back();
    const CommandResult files = RunCommand(Nmcli({"-g", "UUID,FILENAME", "connection", "show"}), deadline);
    isStored = files.output.find(profile + ":/etc/") != std::string::npos;
    return {};
}

Failure NetworkManager::ChangeProfile(const AddressPlan& plan, Deadline deadline)
{
    const Failure failure = ReadProfile(plan, deadline);
    return failure.empty() ? Run(Nmcli({"connection", "modify", "--temporary", "uuid", profile},
                                       Settings(plan, former[1])), // the routes
                                 deadline)
                           : failure;
}

Failure NetworkManager::Apply(const AddressPlan& plan, Deadline deadline)
{
    Failure failure = isActive ? "" : FindProfile(plan.adapter, deadline);
    if (failure.empty())
    {
        failure = profile.empty() ? AddProfile(plan, deadline) : ChangeProfile(plan, deadline);
    }
    if (!failure.empty() || (!isActive && state == UnavailableState))
    {
        return failure;
    }
    isBroughtUp = !isActive;
    return isActive ? Run(Nmcli({"device", "reapply", plan.adapter}), deadline)
                    : Run(Nmcli({"connection", "up", "uuid", profile, "ifname", plan.adapter}), deadline);
}

/// Probes come back with the next restart: they are to be off for the running system only.
Failure NetworkManager::Keep(const AddressPlan& plan, Deadline deadline)
{
    isStored = true; // from here on, even if nmcli fails or takes too long
    return Run(
        Nmcli({"connection", "modify", "uuid", profile}, {"connection.autoconnect", "yes", "connection.interface-name",
                                                          plan.adapter, "ipv4.dad-timeout", probeTime}),
        deadline);
}

/// On disk too, if it was there: a profile that is changed in memory alone hides its file from the administrator.
Failure NetworkManager::RestoreProfile(Deadline deadline)
{
    if (isStored && Run(Nmcli({"connection", "modify", "uuid", profile}, former), deadline).empty())
    {
        return {};
    }
    return Run(Nmcli({"connection", "modify", "--temporary", "uuid", profile}, former), deadline);
}

Failure NetworkManager::Withdraw(const AddressPlan& plan, Deadline deadline)
{
    if (isAdded)
    {
        return Drop({"connection", "delete", "uuid", profile}, deadline);
    }
    if (former.empty())
    {
        return {};
    }
    const Failure failure = RestoreProfile(deadline);
    Failure adapterFailure;
    if (isActive)
    {
        adapterFailure = Run(Nmcli({"device", "reapply", plan.adapter}), deadline);
    }
    else if (isBroughtUp)
    {
        adapterFailure = Drop({"connection", "down", "uuid", profile}, deadline);
    }
    return failure.empty() ? adapterFailure : failure;
}

} // namespace Zelkor::Discovery::Client::Platform
