"""Writes messages to a capture file, posted as a phone posts them, and reads it with tshark."""

import json
import os
import struct
import subprocess

SEGMENT = 30_000  # octets of a message in one TCP segment
RAW_IP = 101      # the kind of capture: packets that begin with the IP header
TCP = 6
PUSH_ACK = 0x18


def packet(port, sequence, octets):
    """A TCP segment from 192.0.2.1 to the HTTP port of 192.0.2.2."""
    tcp = struct.pack(">HHIIBBHHH", port, 80, sequence, 1, 5 << 4, PUSH_ACK, 65535, 0, 0) + octets
    return struct.pack(">BBHHHBBH4B4B", 0x45, 0, 20 + len(tcp), 0, 0, 64, TCP, 0,
                       192, 0, 2, 1, 192, 0, 2, 2) + tcp


def write(path, messages):
    """Writes a capture of the messages, each posted over its own connection, with its index in the list as URL."""
    with open(path, "wb") as file:
        file.write(struct.pack("<IHHiIII", 0xA1B2C3D4, 2, 4, 0, 0, 65535, RAW_IP))
        for place, octets in enumerate(messages):
            request = (f"POST /{place} HTTP/1.1\r\nHost: relay.example\r\n"
                       "Content-Type: application/vnd.wap.mms-message\r\n"
                       f"Content-Length: {len(octets)}\r\n\r\n").encode() + octets
            for at in range(0, len(request), SEGMENT):
                sent = packet(20_000 + place, 1 + at, request[at:at + SEGMENT])
                file.write(struct.pack("<IIII", 0, 0, len(sent), len(sent)) + sent)


def tshark(path, *arguments):
    return subprocess.run(["tshark", "-n", "-r", path, *arguments], check=True, stdout=subprocess.PIPE,
                          stderr=subprocess.DEVNULL, env={**os.environ, "TZ": "UTC", "LC_ALL": "C.UTF-8"}).stdout


def complaints(path):
    """What tshark reports as malformed or wrong."""
    wrong = '_ws.malformed || _ws.short || mmse.oversized_uintvar || _ws.expert.severity >= "Warning"'
    return tshark(path, "-Y", wrong, "-T", "fields", "-e", "http.request.uri", "-e", "_ws.expert.message").decode()


def read(path):
    """What tshark reads of each message, by index: fields by tshark's names, with their octets as "NAME_raw"."""
    shown = json.loads(tshark(path, "-Y", "mmse", "-J", "mmse http", "-x", "-T", "json", "--no-duplicate-keys"))
    layers = [frame["_source"]["layers"] for frame in shown]
    return {int(layer["http"]["http.request.full_uri"].rpartition("/")[2]): layer["mmse"] for layer in layers}
