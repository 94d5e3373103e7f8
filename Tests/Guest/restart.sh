# shellcheck shell=bash source-path=SCRIPTDIR disable=SC2034,SC2154 # variables that guest.sh sets and reads
# Usage: in_namespaces restart.sh <client> <probe>
# A guest with one adapter in the hands of each manager is given new addresses and a new name by datagrams, and restarts
# because of the name. All of it is there when it runs again. The guest's root is a layer over this machine's.
. "$(dirname "${BASH_SOURCE[0]}")/../../Packaging/Tests/guest.sh"
client_program=$1 probe_program=$2

message='A remote Zelkor administration application has just changed some settings which need a restart. The restart '
message+='will be initiated in 30 seconds, please save and close your applications properly.'

write() # file in the guest
{
    mkdir -p "$layer/$(dirname "$1")"
    cat >"$layer/$1"
}

# What the guest runs, and nothing else of this machine's services. v0 leads to this side; v1 and v2 have their cables
# in the guest.
write_units()
{
    write etc/systemd/system/default.target <<-END
		[Unit]
		Requires=sysinit.target dbus.service systemd-logind.service cables.service networking.service
		Requires=systemd-networkd.service NetworkManager.service
		After=dbus.service systemd-logind.service networking.service systemd-networkd.service NetworkManager.service
	END
    write etc/systemd/system/cables.service <<-END
		[Unit]
		DefaultDependencies=no
		Before=systemd-networkd.service NetworkManager.service networking.service
		[Service]
		Type=oneshot
		RemainAfterExit=yes
		ExecStart=ip link add v1 address 02:00:00:00:00:01 up type veth peer w1
		ExecStart=ip link add v2 address 02:00:00:00:00:02 type veth peer w2
		ExecStart=ip link set w1 up
		ExecStart=ip link set w2 up
	END
}

write_network()
{
    rm -rf "$layer"/etc/systemd/network/* "$layer"/etc/network/interfaces* "$layer"/usr/sbin/policy-rc.d \
        "$layer"/etc/NetworkManager/{conf.d,system-connections}/* "$layer"/lib/udev/rules.d/85-nm-unmanaged.rules
    write etc/NetworkManager/conf.d/guest.conf <<-END
		[main]
		plugins=keyfile
		no-auto-default=*
		[keyfile]
		unmanaged-devices=except:interface-name:v0
	END
    write etc/NetworkManager/system-connections/v0.nmconnection <<-END
		[connection]
		id=v0
		type=ethernet
		interface-name=v0
		[ipv4]
		method=manual
		address1=10.9.0.1/24
	END
    chmod 600 "$layer/etc/NetworkManager/system-connections/v0.nmconnection"
    printf '[Match]\nName=v1\n[Network]\nAddress=10.1.0.1/24\n' | write etc/systemd/network/10-v1.network
    printf 'auto v2\niface v2 inet static\n    address 10.2.0.1/24\n' | write etc/network/interfaces
}

start_client()
{
    guest systemd-run --quiet --unit="$unit" --property=Type=notify /usr/local/sbin/DiscoveryClient
}

has_only() # adapter, address
{
    local addresses
    addresses=$(guest ip -4 -o address show dev "$1" scope global)
    [ "$(grep -c inet <<<"$addresses")" = 1 ] && grep -q "inet $2/24 " <<<"$addresses"
}

expect_addresses()
{
    expect "$1: NetworkManager's address" wait_for 10 network_events has_only v0 10.9.0.77
    expect "$1: networkd's address" wait_for 10 network_events has_only v1 10.1.0.77
    expect "$1: ifupdown's address" wait_for 10 network_events has_only v2 10.2.0.77
    expect "$1: the gateway" grep -q 'via 10.9.0.2 dev v0' <<<"$(guest ip route show default)"
}

change_addresses()
{
    request ipconfig 02:00:00:00:00:01 10.1.0.77 255.255.255.0 0.0.0.0
    request ipconfig 02:00:00:00:00:02 10.2.0.77 255.255.255.0 0.0.0.0
    request ipconfig "$(guest cat /sys/class/net/v0/address)" 10.9.0.77 255.255.255.0 10.9.0.2
    expect_addresses 'after the request'
}

change_name()
{
    local begin=$SECONDS
    request --to 10.9.0.77 hostname renamed-node
    expect 'requests go on' answer '"HostName":"renamed-node"' --to 10.9.0.77 signature # behind the change
    expect 'the name holds at once' grep -qx renamed-node "$layer/etc/hostname"
    expect 'users are told' guest grep -qxF "WALL_MESSAGE=$message" /run/systemd/shutdown/scheduled
    expect 'the guest restarts' guest_ends_within 60
    echo "ended after $((SECONDS - begin)) s"
    expect 'the restart waits for its 30 seconds' [ $((SECONDS - begin)) -ge 29 ]
    expect "it is a restart and no halt (code $ended_with)" [ "$ended_with" -eq 133 ] # systemd-nspawn(1)
}

prepare_guest /
write_units
write_network
cp "$client_program" "$layer/usr/local/sbin/DiscoveryClient"
boot_guest
start_client
expect 'the client answers' wait_for 10 network_events answer '10\.9\.0\.1' --from 10.9.0.2 all
change_addresses
change_name
boot_guest
start_client
expect 'the host has its new name' wait_for 10 network_events answer '"HostName":"renamed-node"' --from 10.9.0.2 all
expect_addresses 'after the restart'
