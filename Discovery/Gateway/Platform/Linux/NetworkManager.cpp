#include "NetworkManager.h"

#include "LogicalLines.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <sstream>

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

struct Property
{
    const char* name; // for nmcli
    std::string NetworkManager::Settings::*value;
};
constexpr std::array<Property, 6> Properties = {{{"ipv4.routes", &NetworkManager::Settings::routes},
                                                 {"ipv4.method", &NetworkManager::Settings::method},
                                                 {"ipv4.addresses", &NetworkManager::Settings::addresses},
                                                 {"ipv4.gateway", &NetworkManager::Settings::gateway},
                                                 {"ipv4.never-default", &NetworkManager::Settings::neverDefault},
                                                 {"ipv4.dad-timeout", &NetworkManager::Settings::probeTime}}};

/// Has nmcli answer with bare values.
CommandResult RunNmcli(Words arguments, Deadline deadline)
{
    arguments.insert(arguments.begin(), {"nmcli", "--escape", "no"});
    return RunCommand(arguments, deadline);
}

Failure Nmcli(const Words& arguments, Deadline deadline)
{
    return ProgramFailure("nmcli", RunNmcli(arguments, deadline));
}

/// Deletes a profile, or takes it off its adapter; no failure if it is gone already.
Failure Drop(const Words& arguments, Deadline deadline)
{
    const CommandResult result = RunNmcli(arguments, deadline);
    return result.code == NotFoundCode ? Failure() : ProgramFailure("nmcli", result);
}

/// Has nmcli give a profile new settings.
Failure Write(Words arguments, const NetworkManager::Settings& settings, Deadline deadline)
{
    for (const Property& property : Properties)
    {
        arguments.insert(arguments.end(), {property.name, settings.*property.value});
    }
    return Nmcli(arguments, deadline);
}

/// Whether a route is a default route of the main table; those of other tables serve rules.
bool IsDefaultRoute(const std::string& route)
{
    const Words words = SplitWords(route);
    return !words.empty() && words[0].ends_with("/0") &&
           std::none_of(words.begin(), words.end(),
                        [](const std::string& word) { return word.starts_with("table=") && word != "table=254"; });
}

/// @param routes  separated by commas
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

/// What the profile says while the system runs. Its former addresses and gateways are replaced.
NetworkManager::Settings MakeSettings(const AddressPlan& plan, const std::string& formerRoutes)
{
    return {WithoutDefaultRoutes(formerRoutes),
            "manual",
            plan.address + "/" + std::to_string(plan.prefixLength),
            plan.gateway,
            "no",
            "0"};
}

bool IsUuid(const std::string& line)
{
    return line.size() == UuidLength && line.find_first_not_of("0123456789abcdef-") == std::string::npos;
}

/// A UUID that no profile has.
std::string MakeUuid()
{
    std::string text;
    std::getline(std::ifstream("/proc/sys/kernel/random/uuid"), text); // another at each reading
    return text;
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

} // namespace

std::string NetworkManager::Name() const
{
    return "NetworkManager";
}

bool NetworkManager::NeedsCarrier() const
{
    return true;
}

Answer NetworkManager::Examine(const std::string& adapter, Deadline deadline)
{
    SystemBus bus(deadline);
    if (const Answer isRunning = bus.IsRunning(Service); isRunning != Answer::Yes)
    {
        return isRunning;
    }
    BusMessage reply;
    const char* path = nullptr;
    if (bus.Call(Service, ServicePath, Service, "GetDeviceByIpIface", reply, "s", adapter.c_str()) != 0)
    {
        const bool isStranger = bus.LastErrorName() == "org.freedesktop.NetworkManager.UnknownDevice";
        return isStranger ? Answer::No : Answer::Unknown;
    }
    if (!bus.Read(reply, "o", &path))
    {
        return Answer::Unknown;
    }
    const auto isManaged = bus.ReadNumber(Service, path, DeviceInterface, "Managed", 'b');
    ReadDevice(bus, path);
    return !isManaged ? Answer::Unknown : *isManaged != 0 ? Answer::Yes : Answer::No;
}

void NetworkManager::ReadDevice(SystemBus& bus, const char* path)
{
    type = bus.ReadNumber(Service, path, DeviceInterface, "DeviceType", 'u').value_or(0);
    state = bus.ReadNumber(Service, path, DeviceInterface, "State", 'u').value_or(0);
    const std::string active = bus.ReadText(Service, path, DeviceInterface, "ActiveConnection", 'o');
    if (!active.empty() && active != "/")
    {
        profile = bus.ReadText(Service, active.c_str(), ActiveInterface, "Uuid", 's');
    }
    isActive = !profile.empty();
}

// decision 169
void NetworkManager::DisableProbes(const std::string& adapter, Deadline deadline)
{
    if (isActive)
    {
        RunNmcli({"device", "modify", adapter, "ipv4.dad-timeout", "0"}, deadline);
    }
}

/// The first profile that names the adapter.
Failure NetworkManager::FindProfile(const std::string& adapter, Deadline deadline)
{
    Words request = {"-g", "connection.uuid,connection.interface-name", "connection", "show"};
    for (const std::string& line : SplitOutput(RunNmcli({"-g", "UUID", "connection", "show"}, deadline).output))
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
    const CommandResult profiles = RunNmcli(request, deadline);
    const Words lines = SplitOutput(profiles.output);
    for (std::size_t i = 1; i < lines.size() && profile.empty(); ++i)
    {
        profile = lines[i] == adapter && IsUuid(lines[i - 1]) ? lines[i - 1] : "";
    }
    return ProgramFailure("nmcli", profiles);
}

Failure NetworkManager::AddProfile(const AddressPlan& plan, Deadline deadline)
{
    if (type != EthernetType && type != VethType)
    {
        return Failure("the adapter has no profile and is no Ethernet adapter");
    }
    profile = MakeUuid();
    isAdded = true; // may be so even if nmcli fails or takes too long
    return Write({"connection", "add", "save", "no", "type", "ethernet", "ifname", plan.adapter, "con-name",
                  "Zelkor " + plan.adapter, "connection.uuid", profile},
                 MakeSettings(plan, ""), deadline);
}

/// What the profile says before the change.
Failure NetworkManager::ReadProfile(Deadline deadline)
{
    std::string names;
    for (const Property& property : Properties)
    {
        names += (names.empty() ? "" : ",") + std::string(property.name);
    }
    const CommandResult shown = RunNmcli({"-g", names, "connection", "show", "uuid", profile}, deadline);
    if (Failure failure = ProgramFailure("nmcli", shown))
    {
        return failure;
    }
    Words values = SplitOutput(shown.output);
    std::erase_if(values, [](const std::string& line) { return line.starts_with("Warning"); });
    if (values.size() != Properties.size())
    {
        return Failure("nmcli does not show the profile: " + shown.output);
    }
    Settings settings;
    for (std::size_t i = 0; i < values.size(); ++i)
    {
        settings.*Properties[i].value = values[i];
    }
    settings.probeTime = settings.probeTime.substr(0, settings.probeTime.find(' ')); // of "-1 (default)"
    former = settings;
    const CommandResult files = RunNmcli({"-g", "UUID,FILENAME", "connection", "show"}, deadline);
    isStored = files.output.find(profile + ":/etc/") != std::string::npos;
    return {};
}

Failure NetworkManager::ChangeProfile(const AddressPlan& plan, Deadline deadline)
{
    if (Failure failure = ReadProfile(deadline))
    {
        return failure;
    }
    return Write({"connection", "modify", "--temporary", "uuid", profile}, MakeSettings(plan, former->routes),
                 deadline);
}

Failure NetworkManager::Apply(const AddressPlan& plan, Deadline deadline)
{
    if (!isActive)
    {
        if (Failure failure = FindProfile(plan.adapter, deadline))
        {
            return failure;
        }
    }
    if (Failure failure = profile.empty() ? AddProfile(plan, deadline) : ChangeProfile(plan, deadline))
    {
        return failure;
    }
    if (isActive)
    {
        return Nmcli({"device", "reapply", plan.adapter}, deadline);
    }
    if (state == UnavailableState)
    {
        return {};
    }
    isBroughtUp = true;
    return Nmcli({"connection", "up", "uuid", profile, "ifname", plan.adapter}, deadline);
}

/// Probes come back with the next restart: they are to be off for the running system only.
Failure NetworkManager::Keep(const AddressPlan& plan, Deadline deadline)
{
    isStored = true; // from here on, even if nmcli fails or takes too long
    return Nmcli({"connection", "modify", "uuid", profile, "connection.autoconnect", "yes", "connection.interface-name",
                  plan.adapter, "ipv4.dad-timeout", former ? former->probeTime : "-1"},
                 deadline);
}

/// On disk too, if it was there: a profile that is changed in memory alone hides its file from the administrator.
/// (decision 161)
Failure NetworkManager::RestoreProfile(Deadline deadline)
{
    if (isStored && !Write({"connection", "modify", "uuid", profile}, *former, deadline))
    {
        return {};
    }
    return Write({"connection", "modify", "--temporary", "uuid", profile}, *former, deadline);
}

Failure NetworkManager::RestoreAdapter(const std::string& adapter, Deadline deadline)
{
    if (isActive)
    {
        return Nmcli({"device", "reapply", adapter}, deadline);
    }
    return isBroughtUp ? Drop({"connection", "down", "uuid", profile}, deadline) : Failure();
}

Failure NetworkManager::Withdraw(const AddressPlan& plan, Deadline deadline)
{
    if (isAdded)
    {
        return Drop({"connection", "delete", "uuid", profile}, deadline);
    }
    if (!former)
    {
        return {};
    }
    const Failure profileFailure = RestoreProfile(deadline);
    const Failure adapterFailure = RestoreAdapter(plan.adapter, deadline);
    return profileFailure ? profileFailure : adapterFailure;
}

} // namespace Zelkor::Discovery::Client::Platform
