# shellcheck shell=bash source-path=SCRIPTDIR disable=SC2034,SC2154 # variables that guest.sh sets and reads
# Usage: in_namespaces rounds.sh <root> <probe> <package> <newer package> <rounds>
# A life of the package on a fresh host, over and over: installed, started, asked, upgraded, removed, purged.
. "$(dirname "${BASH_SOURCE[0]}")/guest.sh"
root=$1 probe_program=$2 first=$3 second=$4 rounds=$5

# Every name on the host but what systemd, the package manager and the journal write on their own.
list_files()
{
    guest find / -xdev \( -path /run -o -path /tmp -o -path /proc -o -path /sys -o -path /dev \
        -o -path /var/log/journal -o -path '/var/tmp/systemd-private-*' \) -prune -o -print |
        grep -Ev '^/var/(lib/dpkg/(status|diversions|statoverride)-old|log/dpkg\.log)$' | sort
}

# Both ways of asking: everyone, and this host alone.
is_served()
{
    guest systemctl --quiet is-active "$unit" && guest systemctl --quiet is-enabled "$unit" &&
        [ "$(service_property NRestarts)" = 0 ] &&
        answer '10\.9\.0\.1' --from 10.9.0.2 all && answer '10\.9\.0\.1' --to 10.9.0.1 signature
}

is_gone()
{
    ! guest systemctl --quiet is-active "$unit" && ! guest pidof DiscoveryClient >/dev/null
}

run_round()
{
    local before=$work/before after=$work/after old
    list_files >"$before"
    install_package "$first"
    expect 'the installed service answers' is_served
    expect 'the log is there' test -s "$layer/var/log/Zelkor/Discovery/DiscoveryClient/DiscoveryClient.log"
    expect 'the folder of the plug-ins is there' test -d "$layer/opt/Zelkor/Common/Discovery/ProductIDs"
    old=$(service_property MainPID)
    install_package "$second"
    expect 'the upgraded service answers' is_served
    expect 'the upgrade restarts the service' test "$old" != "$(service_property MainPID)"
    guest dpkg --remove zelkor-discovery-client >"$work/dpkg.log" 2>&1
    expect 'the removed service is gone' is_gone
    expect 'a removal keeps the log' test -s "$layer/var/log/Zelkor/Discovery/DiscoveryClient/DiscoveryClient.log"
    guest dpkg --purge zelkor-discovery-client >"$work/dpkg.log" 2>&1
    list_files >"$after"
    expect 'a purge leaves nothing' diff "$before" "$after"
}

# Who has disabled the service keeps it so; what others put into the folders stays.
check_what_is_kept()
{
    install_package "$first"
    guest systemctl --quiet disable --now "$unit"
    touch "$layer/opt/Zelkor/Common/Discovery/ProductIDs/Product.so" "$layer/var/log/Zelkor/Other.log"
    install_package "$second"
    expect 'an upgrade leaves a disabled service alone' is_gone
    guest dpkg --purge zelkor-discovery-client >"$work/dpkg.log" 2>&1
    expect 'a purge keeps the plug-ins of products' test -f "$layer/opt/Zelkor/Common/Discovery/ProductIDs/Product.so"
    expect 'a purge keeps the logs of others' test -f "$layer/var/log/Zelkor/Other.log"
}

for ((round = 1; round <= rounds; round++)); do
    begin=${EPOCHREALTIME/./}
    (
        prepare_guest "$root"
        adapter_owned_by ifupdown
        boot_guest
        run_round
        [ "$round" -ne 1 ] || check_what_is_kept
    )
    took=$(((${EPOCHREALTIME/./} - begin) / 1000))
    echo "round $round: installed, asked, upgraded, asked, removed, purged in $took ms"
done
