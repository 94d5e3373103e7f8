#include "ManagedHost.h"

#include "Commands.h"
#include "Events.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <fstream>
#include <gtest/gtest.h>
#include <linux/rtnetlink.h>
#include <sys/socket.h>
#include <unistd.h>

/// How a manager is run in a test. The shell commands find an adapter in $N, its addresses in $A, its gateway in $G.
struct Recipe
{
    const char* program;
    std::vector<std::string> daemon; ///< empty if there is none
    const char* prepare;
    const char* configure;
    const char* busName; ///< of the daemon
    const char* ready;   ///< waits for the daemon
    const char* up;      ///< for each adapter
    const char* down;    ///< for each adapter
    const char* forget;
};

namespace
{

const std::array<Recipe, 4> Recipes = {{
    {"/bin/sh",
     {},
     "",
     "echo \"$A $G\" >\"/run/$N.addresses\"",
     "",
     "",
     R"(read -r A <"/run/$N.addresses"; ip link set dev "$N" up; ip -6 addr replace fd00::1/64 dev "$N" nodad
for a in $A; do case $a in */*) ip addr add "$a" dev "$N";; *) ip route add default via "$a" dev "$N";; esac; done)",
     "ip -4 addr flush dev \"$N\"",
     ""},
    {"/usr/sbin/NetworkManager",
     {"NetworkManager", "--no-daemon"},
     R"(mount -t tmpfs tmpfs /var/lib/NetworkManager
mkdir -p /etc/NetworkManager/conf.d; rm -rf /etc/NetworkManager/dispatcher.d
printf '[main]\nplugins=keyfile\ndns=none\nauth-polkit=false\nno-auto-default=*\n[keyfile]\nunmanaged-devices=interface-name:end\n' >/etc/NetworkManager/conf.d/test.conf)",
     R"(f="/etc/NetworkManager/system-connections/$N.nmconnection"; i=0
{ printf '[connection]\nid=%s\ntype=ethernet\ninterface-name=%s\n' "$N" "$N"
  printf '[ipv6]\nmethod=manual\naddress1=fd00::1/64\n[ipv4]\nmethod=manual\n'
  for a in $A; do i=$((i + 1)); echo "address$i=$a${G:+,$G}"; G=; done; } >"$f"
chmod 600 "$f")",
     "org.freedesktop.NetworkManager",
     "nm-online -s -q -t 10",
     "",
     "ip addr flush dev \"$N\"",
     "rm -rf /run/NetworkManager"},
    {"/usr/lib/systemd/systemd-networkd",
     {"setpriv", "--reuid=systemd-network", "--regid=systemd-network", "--init-groups",
      "--inh-caps=+net_admin,+net_raw,+net_bind_service,+net_broadcast",
      "--ambient-caps=+net_admin,+net_raw,+net_bind_service,+net_broadcast", "/usr/lib/systemd/systemd-networkd"},
     "mkdir -p /run/systemd/netif/links /run/systemd/netif/leases /run/systemd/netif/lldp\n"
     "chown -R systemd-network: /run/systemd/netif",
     R"({ printf '[Match]\nName=%s\n[Network]\nAddress=fd00::1/64\n' "$N"
  for a in $A; do echo "Address=$a"; done; echo "${G:+Gateway=$G}"; } >"/etc/systemd/network/10-$N.network")",
     "org.freedesktop.network1",
     "",
     "",
     "ip addr flush dev \"$N\"",
     "rm -f /run/systemd/netif/*/*"},
    {"/sbin/ifup",
     {},
     "printf 'auto lo\\niface lo inet loopback\\nsource interfaces.d/*\\n' >/etc/network/interfaces; mkdir -p "
     "/run/network",
     R"({ echo "auto $N"
  for a in $A; do printf 'iface %s inet static\n  address %s\n' "$N" "$a"; echo "${G:+  gateway $G}"; G=; done
  printf 'iface %s inet6 static\n  address fd00::1/64\n  dad-attempts 0\n' "$N"; } >"/etc/network/interfaces.d/$N")",
     "",
     "",
     "ifup \"$N\"",
     "ifdown --force \"$N\"",
     "rm -rf /run/network/*"},
}};

// No service is started by its name: what the daemons would like to have must not run on after the test.
constexpr const char* BusConfiguration =
    R"(<busconfig><type>system</type><listen>unix:path=/run/dbus/system_bus_socket</listen><policy context="default">
<allow user="*"/><allow own="*"/><allow send_destination="*"/><allow receive_sender="*"/></policy></busconfig>)";

bool HasAddress(const std::string& adapter)
{
    return std::system(("ip -4 -o addr show dev '" + adapter + "' | grep -q inet").c_str()) == 0;
}

/// Tells of changes of IPv4 addresses in the calling thread's network, from now on.
Descriptor AddressEvents()
{
    Descriptor events(socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC, NETLINK_ROUTE));
    sockaddr_nl address{};
    address.nl_family = AF_NETLINK;
    address.nl_groups = RTMGRP_IPV4_IFADDR;
    EXPECT_EQ(0, bind(events.Number(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)));
    return events;
}
} // namespace

ManagedHost::ManagedHost(Manager manager) : recipe(Recipes.at(static_cast<std::size_t>(manager)))
{
    if (IsInstalled())
    {
        Shell("mount -t sysfs -o ro sysfs /sys"); // read-only: the daemons then do without udev
        Shell(recipe.prepare);
    }
}

ManagedHost::~ManagedHost()
{
    End(daemon);
    End(bus);
}

bool ManagedHost::IsInstalled() const
{
    return access(recipe.program, X_OK) == 0 && (recipe.daemon.empty() || access("/usr/bin/dbus-daemon", X_OK) == 0);
}

void ManagedHost::ForEachAdapter(const std::string& commands) const
{
    for (const std::string& adapter : adapters)
    {
        Shell("N='" + adapter + "'; " + commands);
    }
}

void ManagedHost::Configure(const std::string& adapter, const std::string& addresses, const std::string& gateway)
{
    adapters.insert(adapter);
    Shell("N='" + adapter + "'; A='" + addresses + "'; G='" + gateway + "'; " + recipe.configure);
}

void ManagedHost::Start()
{
    if (bus < 0 && !recipe.daemon.empty())
    {
        std::ofstream("/run/dbus/test.conf") << BusConfiguration;
        bus = Launch({"dbus-daemon", "--config-file=/run/dbus/test.conf", "--nofork", "--nopidfile"});
        WaitForBusName("org.freedesktop.DBus");
    }
    const Descriptor events = AddressEvents();
    if (!recipe.daemon.empty())
    {
        daemon = Launch(recipe.daemon);
        WaitForBusName(recipe.busName);
        Shell(recipe.ready);
    }
    ForEachAdapter(recipe.up);
    // What the daemons set comes a moment after they answer.
    EXPECT_TRUE(WaitUntil(events, std::chrono::seconds(10),
                          [this] { return std::all_of(adapters.begin(), adapters.end(), HasAddress); }));
}

void ManagedHost::Stop()
{
    End(daemon);
    ForEachAdapter(recipe.down);
    Shell(recipe.forget);
}

void ManagedHost::Freeze() const
{
    if (daemon > 0) // -1 would mean every process of the machine
    {
        kill(daemon, SIGSTOP);
    }
}
