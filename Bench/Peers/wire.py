"""What is said on the LAN, with the kernel's times."""
import contextlib
import socket
import struct
import time
from typing import NamedTuple

ETH_P_ALL, ETH_P_IP, PROTOCOL_UDP = 3, 0x0800, 17
SO_RCVBUFFORCE, SO_TIMESTAMPNS = 33, 35  # asm-generic/socket.h; Python has no names for them
CLIENT_PORT, REQUESTER_PORT = 12000, 12001


class Frame(NamedTuple):
    time: int  # ns since 1970
    is_sent: bool  # by this side
    protocol: int  # EtherType
    to_port: int  # of UDP over IPv4, else 0
    payload: bytes  # of the datagram, else what follows the Ethernet header


def with_stamps(receiver):
    """The socket, with room for a burst, and the kernel notes when each packet came."""
    receiver.setsockopt(socket.SOL_SOCKET, SO_TIMESTAMPNS, 1)
    receiver.setsockopt(socket.SOL_SOCKET, SO_RCVBUFFORCE, 64 << 20)
    return receiver


def receive(receiver):
    """A packet, when it came (ns since 1970), and its address."""
    data, [(_, _, stamp)], _, address = receiver.recvmsg(65536, 64)
    seconds, nanoseconds = struct.unpack("qq", stamp)
    return data, seconds * 10**9 + nanoseconds, address


def make_station():
    """The administration side: a socket on its port, which may broadcast."""
    station = with_stamps(socket.socket(socket.AF_INET, socket.SOCK_DGRAM))
    station.setsockopt(socket.SOL_SOCKET, socket.SO_BROADCAST, 1)
    station.bind(("", REQUESTER_PORT))
    return station


def hear_until_silence(station, seconds):
    """What comes in until nothing has come for a while: pairs of sender's address and time."""
    station.settimeout(seconds)
    heard = []
    with contextlib.suppress(TimeoutError):
        while True:
            _, at, (address, _) = receive(station)
            heard.append((address, at))
    return heard


def frame_of(data, at, address):
    is_sent, protocol, payload = address[2] == socket.PACKET_OUTGOING, address[1], data[14:]
    if protocol != ETH_P_IP or payload[9] != PROTOCOL_UDP:
        return Frame(at, is_sent, protocol, 0, payload)
    header = (payload[0] & 15) * 4
    return Frame(at, is_sent, protocol, struct.unpack_from("!H", payload, header + 2)[0], payload[header + 8:])


class Wire:
    """Listens at an adapter. The times are those of the packets there: no wake-up of this program is in them."""

    def __init__(self, adapter):
        self.socket = with_stamps(socket.socket(socket.AF_PACKET, socket.SOCK_RAW, socket.htons(ETH_P_ALL)))
        self.socket.bind((adapter, ETH_P_ALL))

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.socket.close()

    def wait_for(self, is_wanted, seconds):
        """The first frame that is_wanted takes, or None."""
        end = time.monotonic() + seconds
        while (left := end - time.monotonic()) > 0:
            self.socket.settimeout(left)
            try:
                frame = frame_of(*receive(self.socket))
            except TimeoutError:
                break
            if is_wanted(frame):
                return frame
        return None
