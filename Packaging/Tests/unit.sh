# shellcheck shell=bash source-path=SCRIPTDIR disable=SC2034,SC2154 # variables that guest.sh sets and reads
# Usage: in_namespaces unit.sh <root> <probe> <package> <plug-in> <ifupdown|networkd|NetworkManager|nobody>
# What the program does, done by the installed service in the sandbox of its unit, on a host whose adapter is in the
# hands of the given manager.
. "$(dirname "${BASH_SOURCE[0]}")/guest.sh"
root=$1 probe_program=$2 package=$3 plugin=$4 manager=$5

# Everything that a signature holds, read under the sandbox.
check_sources()
{
    local common=$layer/opt/Zelkor/Common/Discovery
    cp "$plugin" "$common/ProductIDs/Store.so"
    echo '{"Upload":"ftp"}' >"$common/FileTransferInfos.json"
    mkdir -p "$layer/etc/opt/Zelkor/Common"
    echo 4711 >"$layer/etc/opt/Zelkor/Common/global-serial-number"
    expect 'identity number' answer '"SerialNumber":"4711"' --from 10.9.0.2 all
    expect 'plug-in' answer '"ProductVersion":"2.1"' --from 10.9.0.2 all
    expect 'file-transfer infos' answer '"Upload":"ftp"' --from 10.9.0.2 all
}

# Of a client that has announced itself and answered. Libraries count, though others share them.
check_memory()
{
    local resident
    resident=$(guest awk '/^VmRSS:/ { print $2 }' "/proc/$(service_property MainPID)/status")
    echo "resident memory: $resident KiB"
    expect 'it stays under 8 MiB' [ "$resident" -lt 8192 ]
}

is_started_again()
{
    [ "$(service_property NRestarts)" = 1 ] && guest systemctl --quiet is-active "$unit"
}

check_restart()
{
    guest systemctl kill --kill-whom=main --signal=ABRT "$unit"
    expect 'a service that failed comes back' wait_for 15 unit_events is_started_again
}

hears_strangers()
{
    answer '"sender":"203\.0\.113\.1:' --to 203.0.113.1 signature
}

# An address outside of the ranges of the unit is neither heard nor answered, until a drop-in adds its range.
check_allow_list()
{
    if guest journalctl --no-pager | grep 'does not support BPF'; then
        echo 'The allow-list is not checked'
        return 0
    fi
    guest ip address add 203.0.113.1/24 dev v0
    ip address add 203.0.113.2/24 dev h0
    ! hears_strangers || expect 'strangers get no answer' false
    mkdir "$layer/etc/systemd/system/$unit.d"
    printf '[Service]\nIPAddressAllow=203.0.113.0/24\n' >"$layer/etc/systemd/system/$unit.d/network.conf"
    guest systemctl daemon-reload
    guest systemctl restart "$unit"
    expect 'a drop-in opens the service for more addresses' hears_strangers
    ip address delete 203.0.113.2/24 dev h0
    guest ip address delete 203.0.113.1/24 dev v0
}

has_only() # address
{
    local addresses
    addresses=$(guest ip -4 -o address show dev v0 scope global)
    [ "$(grep -c inet <<<"$addresses")" = 1 ] && grep -q "inet $1/24 " <<<"$addresses" &&
        guest ip route show default | grep -q 'via 10.9.0.2 dev v0'
}

# The program is stripped, its line tables lie beside it: a failure still tells its places.
check_trace()
{
    # shellcheck disable=SC2016 # the guest's shell expands
    expect 'a failure tells file and line' guest sh -c 'exec 2>/dev/null
        systemctl stop "$0"
        mount -t tmpfs -o ro log /var/log
        /usr/sbin/DiscoveryClient 2>&1 | grep -q "ServiceEntryPoint.*Service/DiscoveryClientService.cpp:[1-9]"' "$unit"
}

check_address()
{
    request ipconfig "$(guest cat /sys/class/net/v0/address)" 10.9.0.77 255.255.255.0 10.9.0.2
    expect "$manager changes the address" wait_for 20 network_events has_only 10.9.0.77
    expect 'the service answers at its new address' answer '10\.9\.0\.77' --to 10.9.0.77 signature
}

# A hook starts a daemon, as hooks start DHCP and WPA clients: it belongs to the adapter, not to the service.
add_hook()
{
    printf '#!/bin/sh\nip link set v0 mtu 1400\nsleep 4711 >/dev/null 2>&1 &\n' >"$layer/etc/network/if-up.d/daemon"
    chmod 755 "$layer/etc/network/if-up.d/daemon"
}

check_hook()
{
    expect 'hooks have the rights of root' guest grep -qx 1400 /sys/class/net/v0/mtu
    guest systemctl restart "$unit"
    expect 'what a hook started outlives the service' guest pkill --full 'sleep 4711'
}

# It is ended when the time for the change is over, and nothing of it stays behind; the former address is back.
check_hanging_hook()
{
    printf '#!/bin/sh\n[ -e /run/hung ] || { touch /run/hung; sleep 4712; }\n' >"$layer/etc/network/if-up.d/daemon"
    expect 'a change with a hanging hook is answered' answer '10\.9\.0\.77' --from 10.9.0.2 --seconds 40 \
        ipconfig "$(guest cat /sys/class/net/v0/address)" 10.9.0.78 255.255.255.0 10.9.0.2
    expect 'a hanging hook makes the change fail' grep -q 'SetIPAddresses failed' \
        "$layer/var/log/Zelkor/Discovery/DiscoveryClient/DiscoveryClient.log"
    ! guest pgrep --full 'sleep 4712' || expect 'what hung is ended' false
    expect 'the former address is back' has_only 10.9.0.77
}

# The stop waits for the change, and the programs that make it are not ended before.
check_stop_amid_change()
{
    printf '#!/bin/sh\nsleep 3\n' >"$layer/etc/network/if-up.d/daemon"
    request ipconfig "$(guest cat /sys/class/net/v0/address)" 10.9.0.78 255.255.255.0 10.9.0.2
    guest systemctl restart "$unit"
    expect 'a stop lets a change end' has_only 10.9.0.78
    rm "$layer/etc/network/if-up.d/daemon"
    request ipconfig "$(guest cat /sys/class/net/v0/address)" 10.9.0.77 255.255.255.0 10.9.0.2
    expect 'the address is back' wait_for 20 network_events has_only 10.9.0.77
}

check_name()
{
    request --to 10.9.0.77 hostname renamed
    expect 'the new name is announced before the restart' answer '"HostName":"renamed"' --to 10.9.0.77 signature
    expect 'the host restarts' guest_ends_within 60
}

prepare_guest "$root"
adapter_owned_by "$manager"
[ "$manager" != ifupdown ] || add_hook
boot_guest
install_package "$package"
expect "the service answers beside $manager" wait_for 10 network_events answer '10\.9\.0\.1' --from 10.9.0.2 all
check_memory
check_address
if [ "$manager" = ifupdown ]; then
    check_hook
    check_hanging_hook
    check_stop_amid_change
    check_sources
    check_restart
    check_allow_list
    check_name
fi
if [ "$manager" = nobody ]; then
    check_trace
    exit
fi
halt_guest
boot_guest
expect 'the address outlasts the restart' wait_for 10 network_events has_only 10.9.0.77
expect 'the service starts with the host' wait_for 10 network_events answer '10\.9\.0\.77' --from 10.9.0.2 all
