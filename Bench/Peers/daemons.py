"""The daemons that are measured: how each is started, what its announcement is, and what it answers."""
import shutil
import struct
import uuid
from pathlib import Path
from typing import Callable, NamedTuple

from wire import CLIENT_PORT, REQUESTER_PORT

LLDP = 0x88CC  # EtherType (IEEE 802.1AB)
LLDP_GROUP = bytes.fromhex("0180c200000e")
MDNS_PORT, WSD_PORT = 5353, 3702


class Daemon(NamedTuple):
    name: str
    command: list
    is_announcement: Callable  # of a frame that the daemon has sent
    port: int  # where it takes datagrams; 0: it takes frames of LLDP
    make_request: Callable = None  # one for a host, from REQUESTER_PORT, that it answers there; none: it answers none
    wait: int = 0  # in ns; before an answer the daemon has to wait for a multiple of this, which it draws


def to_port(port):
    return lambda frame: frame.to_port == port


def is_mdns_answer(frame):
    """Not one of the questions that come first, whether a name is free (RFC 6762, 8.1)."""
    return frame.to_port == MDNS_PORT and frame.payload[2] & 0x80 != 0


def message(kind, broadcast):
    return (f'{{"DiscoveryMessageType":"{kind}","DiscoveryVersion":"1.0.23","Broadcast":"{broadcast}"}}').encode()


def signature_request(_host):
    return message("SendYourSignature", "False")


def wsd_probe(_host):
    """WS-Discovery 1.0, 5.1, with a number of its own, because an answer is given once."""
    schema = "http://schemas.xmlsoap.org/ws"
    return (f'<?xml version="1.0" encoding="utf-8"?>'
            f'<soap:Envelope xmlns:soap="http://www.w3.org/2003/05/soap-envelope" '
            f'xmlns:wsa="{schema}/2004/08/addressing" xmlns:wsd="{schema}/2005/04/discovery" '
            f'xmlns:wsdp="{schema}/2006/02/devprof"><soap:Header>'
            f'<wsa:To>urn:schemas-xmlsoap-org:ws:2005:04:discovery</wsa:To>'
            f'<wsa:Action>{schema}/2005/04/discovery/Probe</wsa:Action>'
            f'<wsa:MessageID>urn:uuid:{uuid.uuid4()}</wsa:MessageID></soap:Header>'
            f'<soap:Body><wsd:Probe><wsd:Types>wsdp:Device</wsd:Types></wsd:Probe></soap:Body></soap:Envelope>').encode()


def mdns_query(host):
    """The address of its name. From a port other than mDNS's own it is answered there, at once (RFC 6762, 6.7)."""
    labels = b"".join(struct.pack("B", len(label)) + label for label in (host.name.encode(), b"local", b""))
    return struct.pack("!6H", 1, 0, 1, 0, 0, 0) + labels + struct.pack("!2H", 1, 1)  # RFC 1035, 4.1: type A, class IN


def daemons(programs, folder):
    """The limit first, ours last, and between them those that this machine has."""
    avahi = Path(folder) / "avahi-daemon.conf"
    avahi.write_text("[server]\nuse-ipv6=no\nenable-dbus=no\n")
    all_of_them = [
        Daemon("limit", [programs / "LimitDaemon"], to_port(REQUESTER_PORT), CLIENT_PORT, signature_request),
        Daemon("wsdd2", ["wsdd2", "-4"], to_port(WSD_PORT), WSD_PORT, wsd_probe),
        Daemon("avahi", ["avahi-daemon", "-f", avahi], is_mdns_answer, MDNS_PORT, mdns_query),
        Daemon("lldpd", ["lldpd", "-d"], lambda frame: frame.protocol == LLDP, 0),
        Daemon("ours", [programs / "DiscoveryClient"], to_port(REQUESTER_PORT), CLIENT_PORT, signature_request,
               10 * 10**6),
    ]
    return [daemon for daemon in all_of_them if shutil.which(daemon.command[0])]
