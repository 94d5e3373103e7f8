"""Hosts of their own for programs, on one bridge, and what a program costs there."""
import contextlib
import itertools
import os
import re
import signal
import subprocess
import sys
import tempfile
import time
from pathlib import Path

BRIDGE, HERE, BROADCAST = "lan", "10.77.0.1", "10.77.255.255"
ROOT = Path(__file__).resolve().parents[2]
numbers = itertools.count(2)

# In three steps, of which the last two wait for a line: namespaces, adapter, program.
SCRIPT = r"""set -e
folder=$1 name=$2 address=$3 log_root=$4 program_root=$5
shift 5
hostname "$name"
echo 1 >/proc/sys/net/ipv6/conf/all/disable_ipv6
printf '127.0.0.1 localhost\n%s %s\n' "$address" "$name" >"$folder/hosts"
mount --bind "$folder/hosts" /etc/hosts
mkdir -p "$folder/log" "$folder/program/Zelkor/Common/Discovery/ProductIDs" "$log_root" "$program_root"
mount --bind "$folder/log" "$log_root"
mount --bind "$folder/program" "$program_root"
mount -t sysfs -o ro sysfs /sys
mount -t tmpfs tmpfs /run
mkdir /run/lldpd
echo
read -r _
ip -batch - <<END
link set lo up
address add $address/16 broadcast + dev lan0
link set lan0 up
route add default via 10.77.0.1
END
until ip link show dev lan0 | grep -q 'state UP'; do sleep 0.02; done
echo
read -r _
exec "$@" >"$folder/output" 2>&1 </dev/null
"""


def ip(commands):
    subprocess.run(["ip", "-batch", "-"], check=True, text=True, input=commands)


def enter_own_lan():
    """Starts the calling program anew in a network, mounts and processes of its own, all gone at its end. There is a
    bridge, on which it has the address HERE."""
    if os.environ.get("PEERS_ALONE") != "yes":
        os.environ["PEERS_ALONE"] = "yes"
        os.execvp("unshare", ["unshare", "--net", "--mount", "--pid", "--fork", "--kill-child", "--mount-proc",
                              sys.executable, *sys.argv])
    ip(f"link set lo up\n"
       f"link add {BRIDGE} type bridge mcast_snooping 0\n"
       f"address add {HERE}/16 broadcast + dev {BRIDGE}\n"
       f"link set {BRIDGE} up\n")


def roots_of(programs):
    """The folders of logs and of programs that a build was configured for."""
    cache = (programs.parent / "CMakeCache.txt").read_text()
    return [re.search(rf"^ZELKOR_{name}_ROOT:\w+=(.*)", cache, re.MULTILINE)[1] for name in ("LOG", "PROGRAM")]


@contextlib.contextmanager
def make_hosts(commands, roots, are_apart=False):
    """A host for each command, ready to start it. The folders roots (of logs, of programs) are the hosts' own.

    Hosts that are_apart reach this program alone, not each other.
    """
    with contextlib.ExitStack() as scope:
        folder = scope.enter_context(tempfile.TemporaryDirectory(prefix="peers-"))
        hosts = [scope.enter_context(Host(command, folder, roots)) for command in commands]
        for host in hosts:
            host.wait_for_step()
        ip("".join(host.cable(are_apart) for host in hosts))
        for host in hosts:
            host.next_step()
        for host in hosts:
            host.wait_for_step()
        yield hosts


class Host:
    """A network, a name and mounts of its own, where one program runs until the end of the scope."""

    def __init__(self, command, folder, roots):
        number = next(numbers)
        high, low = divmod(number, 256)
        self.name = f"STUDIO{number}"
        self.adapter = f"wall{number}"  # the bridge's end of the cable
        self.address = f"10.77.{high}.{low}"
        self.hardware_address = f"02:00:00:00:{high:02x}:{low:02x}"
        self.folder = Path(folder) / self.name
        self.folder.mkdir()
        self.process = subprocess.Popen(["unshare", "--net", "--mount", "--uts", "sh", "-c", SCRIPT, "sh",
                                         self.folder, self.name, self.address, *roots, *command],
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.communicate()

    def wait_for_step(self):
        if self.process.stdout.readline() != b"\n":
            raise RuntimeError("a host can't be made")

    def next_step(self):
        self.process.stdin.write(b"\n")
        self.process.stdin.flush()

    def cable(self, is_apart):
        """The commands that lay it, from the bridge to the adapter lan0."""
        return (f"link add {self.adapter} type veth "
                f"peer name lan0 address {self.hardware_address} netns {self.process.pid}\n"
                f"link set {self.adapter} master {BRIDGE} up\n"
                f"link set {self.adapter} type bridge_slave isolated {'on' if is_apart else 'off'}\n")

    def start(self):
        """Starts the program. @returns when, in ns since 1970"""
        begin = time.time_ns()
        self.next_step()
        return begin

    def output(self):
        """What the program has printed so far."""
        return (self.folder / "output").read_text(errors="replace")

    def processes(self):
        """The folders in /proc of the program and of what it has started."""
        found = [Path(f"/proc/{self.process.pid}")]
        for folder in found:
            for children in folder.glob("task/*/children"):
                found.extend(Path(f"/proc/{child}") for child in children.read_text().split())
        return found

    def sum_of(self, files, expression):
        """The sum of the numbers that an expression finds in the program's files in /proc."""
        return sum(int(number) for process in self.processes() for file in process.glob(files)
                   for number in re.findall(expression, file.read_text(), re.MULTILINE))

    def cpu(self):
        """Time on a processor so far in ns, by the scheduler's count, of the threads that are there."""
        return self.sum_of("task/*/schedstat", r"^\d+")

    def switches(self):
        """How often its threads have gone to sleep or lost the processor so far."""
        return self.sum_of("task/*/status", r"ctxt_switches:\s*(\d+)")

    def resident(self):
        """Memory in KiB, with that of files which other programs may share."""
        return self.sum_of("smaps_rollup", r"^Rss:\s*(\d+)")

    def own(self):
        """Memory in KiB that it alone has, because it wrote there."""
        return self.sum_of("smaps_rollup", r"^Private_Dirty:\s*(\d+)")

    def libraries(self):
        """How many are loaded, the dynamic linker included."""
        return len({library for process in self.processes()
                    for library in re.findall(r"/\S+\.so\b\S*", (process / "maps").read_text())})

    def lost(self):
        """Datagrams so far that found no room in the buffer of a socket."""
        names, values = re.findall(r"^Udp: (.*)", Path(f"/proc/{self.process.pid}/net/snmp").read_text(), re.MULTILINE)
        return int(dict(zip(names.split(), values.split()))["RcvbufErrors"])

    def system_calls(self, action):
        """How many it makes while an action runs; None where there is no strace."""
        table = self.folder / "calls"
        try:
            tracer = subprocess.Popen(["strace", "-f", "-c", "-U", "calls", "-o", table, "-p", str(self.process.pid)],
                                      stderr=subprocess.PIPE, text=True)
        except FileNotFoundError:
            return None
        tracer.stderr.readline()  # it says that it is there
        action()
        tracer.send_signal(signal.SIGINT)
        tracer.communicate()
        return int(re.search(r"(\d+) total$", table.read_text(), re.MULTILINE)[1])
