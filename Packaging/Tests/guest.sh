# shellcheck shell=bash disable=SC2154 # variables that the callers set
# Sourced by the checks: a whole Debian host that is booted beside the check, on a fresh layer each time, with one
# Ethernet link to it: h0 here (10.9.0.2), v0 there. Everything lies in namespaces and a control group of its own.

guest_packages=systemd-sysv,dbus,polkitd,ifupdown,isc-dhcp-client,network-manager,iproute2,netbase,procps
guest_packages+=,libcjson1,libnl-route-3-200,libstdc++6

unit=zelkor-discovery-client.service

# Whether this machine lets us boot one.
can_boot_guest()
{
    [ "$(id -u)" -eq 0 ] && command -v systemd-nspawn mmdebstrap >/dev/null &&
        unshare --mount --net --pid --cgroup --fork --mount-proc true 2>/dev/null
}

# Makes the root once; the stamp names what it was made of.
make_guest_root() # folder
{
    local root=$1 mirror
    [ ! -f "$root.stamp" ] || [ "$(cat "$root.stamp")" != "$guest_packages" ] || return 0
    # shellcheck disable=SC2016 # apt's own placeholder
    mirror=$(apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' 'Origin: Debian' 'Codename: bookworm' \
        'Component: main' | sort -u | head -n 1)
    rm -rf "$root" "$root.stamp"
    mmdebstrap --quiet --variant=minbase --include="$guest_packages" \
        --aptopt='Apt::Install-Recommends "false"' bookworm "$root" "deb $mirror bookworm main"
    echo "$guest_packages" >"$root.stamp"
}

# Runs a script with its arguments in namespaces of its own; what it leaves running ends with it.
in_namespaces() # script, argument ...
{
    # shellcheck disable=SC2016 # the inner shells expand
    local script='
        umount --lazy /mnt
        umount --lazy --recursive /sys/fs/cgroup
        mount -t cgroup2 groups /sys/fs/cgroup
        . "$@"'
    # shellcheck disable=SC2016
    unshare --mount --propagation private bash -euc '
        script=$1
        shift
        mount -t cgroup2 groups /mnt
        own=/mnt/zelkor-package-$$
        mkdir "$own"
        echo $$ >"$own/cgroup.procs"
        code=0
        unshare --cgroup --net --pid --fork --kill-child --mount-proc \
            bash -euo pipefail -c "$script" "$1" "$@" || code=$?
        echo $$ >/mnt/cgroup.procs
        # The last of its processes may still be on their way out: cgroup.events tells of their end (cgroups(7)).
        python3 -c "
import select, sys
events, end = open(sys.argv[1]), select.poll()
end.register(events, select.POLLPRI)
while \"populated 1\" in events.read() and end.poll(5000):
    events.seek(0)" "$own/cgroup.events"
        find "$own" -depth -type d -exec rmdir {} +
        exit $code' in_namespaces "$script" "$@"
}

# Leaves a fresh layer over the root in $layer, not booted. Once a shell; it takes the exit trap.
prepare_guest() # root
{
    work=$(mktemp -d)
    mount -t tmpfs layers "$work"
    owner=$BASHPID
    # Of this shell alone: a child that is ended before it has become its program runs the trap too.
    trap '[ "$BASHPID" != "$owner" ] || { halt_guest; umount --lazy "$work"; rmdir "$work"; }' EXIT
    layer=$work/layer
    nspawn=
    mkdir "$work"/{upper,work,layer}
    mount -t overlay guest -o "lowerdir=$1,upperdir=$work/upper,workdir=$work/work" "$layer"
    : >"$layer/etc/machine-id"
    echo guest >"$layer/etc/hostname"
    rm -f "$layer/etc/resolv.conf"
}

# The manager that owns the adapter v0, and its address 10.9.0.1/24.
adapter_owned_by() # ifupdown|networkd|NetworkManager|nobody
{
    case $1 in
        ifupdown)
            printf 'auto v0\niface v0 inet static\n    address 10.9.0.1/24\n' >"$layer/etc/network/interfaces"
            ;;
        networkd)
            printf '[Match]\nName=v0\n[Network]\nAddress=10.9.0.1/24\n' >"$layer/etc/systemd/network/10-v0.network"
            systemctl --root="$layer" --quiet enable systemd-networkd.service
            systemctl --root="$layer" --quiet disable systemd-networkd-wait-online.service
            ;;
        NetworkManager)
            local profile=$layer/etc/NetworkManager/system-connections/v0.nmconnection
            printf '[connection]\nid=v0\ntype=ethernet\ninterface-name=v0\n[ipv4]\nmethod=manual\n' >"$profile"
            printf 'address1=10.9.0.1/24\n[ipv6]\nmethod=disabled\n' >>"$profile"
            chmod 600 "$profile"
            rm -f "$layer/lib/udev/rules.d/85-nm-unmanaged.rules" # takes veths away from it
            ;;
        nobody)
            printf '[Unit]\nBefore=sysinit.target\nDefaultDependencies=no\n[Service]\nType=oneshot\n' \
                >"$layer/etc/systemd/system/v0.service"
            printf 'ExecStart=ip address add 10.9.0.1/24 dev v0\nExecStart=ip link set v0 up\n' \
                >>"$layer/etc/systemd/system/v0.service"
            ln -s ../v0.service "$layer/etc/systemd/system/sysinit.target.wants/v0.service"
            ;;
    esac
    [ "$1" = NetworkManager ] || systemctl --root="$layer" --quiet disable NetworkManager.service
}

# Repeats a command at each event until it succeeds; once a second too, since a source says nothing of what came before
# it was ready to listen.
wait_for() # seconds, source of events, command ...
{
    local end=$((SECONDS + $1)) source=$2 code=1 events listener
    shift 2
    exec {events}< <("$source" 2>/dev/null)
    listener=$!
    until "$@" >/dev/null 2>&1 && code=0; do
        [ "$SECONDS" -le "$end" ] || break
        read -r -t 1 -u "$events" || [ $? -gt 128 ] || break # beyond 128: nothing was told
    done
    kill "$listener" 2>/dev/null || true
    exec {events}<&-
    return $code
}

network_events()
{
    exec nsenter --target "$init" --net ip monitor address route
}

unit_events()
{
    exec nsenter --target "$init" --mount journalctl --follow --lines=0 --unit="$unit"
}

guest()
{
    nsenter --target "$init" --all "$@"
}

# Hears what systemd-nspawn tells: says when it listens, and the leader's process id when the guest is up.
hear_readiness()
{
    exec python3 -uc '
import socket, sys
listener = socket.socket(socket.AF_UNIX, socket.SOCK_DGRAM)
listener.bind(sys.argv[1])
listener.settimeout(60)
print("listening")
leader = told = ""
while "READY=1" not in told:
    told = listener.recv(4096).decode().split("\n")
    leader = next((line[20:] for line in told if line.startswith("X_NSPAWN_LEADER_PID=")), leader)
print(leader)' "$work/notify"
}

boot_guest()
{
    rm -f "$work/notify"
    local leader told
    exec {leader}< <(hear_readiness)
    read -r -t 10 -u "$leader" told
    NOTIFY_SOCKET=$work/notify systemd-nspawn --notify-ready=yes --register=no --keep-unit --quiet --directory="$layer" --boot --private-network \
        --network-veth-extra=h0:v0 --system-call-filter=bpf --link-journal=no --console=pipe \
        </dev/null >"$work/boot.log" 2>&1 &
    nspawn=$!
    read -r -t 30 -u "$leader" init || { echo "The guest does not start"; cat "$work/boot.log"; return 1; }
    exec {leader}<&-
    ip link set lo up
    ip address add 10.9.0.2/24 brd + dev h0
    ip link set h0 up
}

halt_guest()
{
    [ -n "$nspawn" ] || return 0
    kill -TERM "$nspawn" 2>/dev/null || true
    wait "$nspawn" || true
    nspawn=
}

# Leaves the exit code of systemd-nspawn in $ended_with.
guest_ends_within() # seconds
{
    local timer first=
    sleep "$1" &
    timer=$!
    ended_with=0
    wait -n -p first "$nspawn" "$timer" || ended_with=$?
    [ "$first" = "$nspawn" ] && nspawn= && kill "$timer"
}

# Sends a request like the administration side.
request() # probe's arguments ...
{
    "$probe_program" --from 10.9.0.2 --seconds 1 "$@" >"$work/probe.log"
}

# Asks like the administration side, and waits for a signature that matches. No --from beside --to: a socket bound to
# the address sends then, and takes an answer that comes at once.
answer() # pattern, probe's arguments ...
{
    local pattern=$1 line code=1
    shift
    coproc probe { exec "$probe_program" --json --seconds 5 "$@"; }
    local process=$probe_PID
    while read -r line <&"${probe[0]}"; do
        if [[ $line == *'"SignatureBroadcast"'* && $line =~ $pattern ]]; then
            code=0
            break
        fi
    done
    kill "$process" 2>/dev/null || true
    wait "$process" 2>/dev/null || true
    return $code
}

expect() # what, command ...
{
    local what=$1
    shift
    "$@" || {
        echo "FAILED: $what"
        guest journalctl --no-pager --lines=30 --unit="$unit"
        tail --lines=30 "$layer/var/log/Zelkor/Discovery/DiscoveryClient/DiscoveryClient.log" | cut --bytes=-200
        return 1
    }
}

install_package() # file
{
    cp "$1" "$layer/package.deb"
    guest dpkg --install /package.deb >"$work/dpkg.log" 2>&1 || { cat "$work/dpkg.log"; return 1; }
    rm "$layer/package.deb"
}

service_property() # name
{
    guest systemctl show --property="$1" --value "$unit"
}
