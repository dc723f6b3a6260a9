"""A small file of each media type that phones send."""

import struct
import zlib


def png():
    def chunk(name, octets):
        return struct.pack(">I", len(octets)) + name + octets + struct.pack(">I", zlib.crc32(name + octets))

    header = struct.pack(">IIBBBBB", 1, 1, 8, 0, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(b"\0\x80")) +
            chunk(b"IEND", b""))


def gif():
    return (b"GIF89a" + struct.pack("<HHBBB", 1, 1, 0x80, 0, 0) + b"\0\0\0\xff\xff\xff" + b"\x2c" +
            struct.pack("<HHHHB", 0, 0, 1, 1, 0) + b"\x02\x02\x44\x01\0\x3b")


def jpeg():
    """The beginning, a comment and the end of a JPEG: enough for a reader of its markers."""
    return (b"\xff\xd8" + b"\xff\xe0\0\x10JFIF\0\1\1\0\0\1\0\1\0\0" + b"\xff\xfe\0\7small" + b"\xff\xd9")


def box(name, *contents):
    octets = b"".join(contents)
    return struct.pack(">I", 8 + len(octets)) + name + octets


def mp4(brand):
    return box(b"ftyp", brand, struct.pack(">I", 0), brand) + box(b"mdat", bytes(40_000))


# by the end of a file's name: its media type, and octets
MEDIA = {
    ".png": ("image/png", png()),
    ".gif": ("image/gif", gif()),
    ".jpg": ("image/jpeg", jpeg()),
    ".wbmp": ("image/vnd.wap.wbmp", b"\0\0\1\1\x80"),
    ".amr": ("audio/amr", b"#!AMR\n" + b"\x3c" * 320),
    ".mid": ("audio/midi", b"MThd" + struct.pack(">IHHH", 6, 0, 1, 96) + b"MTrk\0\0\0\4\0\xff\x2f\0"),
    ".imy": ("text/x-iMelody", b"BEGIN:IMELODY\r\nVERSION:1.2\r\nFORMAT:CLASS1.0\r\nMELODY:c3\r\nEND:IMELODY\r\n"),
    ".3gp": ("video/3gpp", mp4(b"3gp4")),
    ".mp4": ("video/mp4", mp4(b"mp42")),
    ".txt": ("text/plain", "Привет, 写真\n".encode()),
    ".html": ("text/html", b"<html><body>Hello</body></html>\n"),
    ".vcf": ("text/x-vCard", b"BEGIN:VCARD\r\nVERSION:2.1\r\nN:Anna\r\nEND:VCARD\r\n"),
    ".vcs": ("text/x-vCalendar", b"BEGIN:VCALENDAR\r\nVERSION:1.0\r\nEND:VCALENDAR\r\n"),
    ".pdf": ("application/pdf", b"%PDF-1.4\n%%EOF\n"),
    ".zzz": ("application/octet-stream", bytes(range(256))),
}
NAMES = ["lake", "Grüße", "Привет", "Ελλάδα", "שלום", "مرحبا", "写真", "사진"]


def write(directory):
    """Writes a file of each type, with names in different scripts; returns the names."""
    for place, (suffix, (_, octets)) in enumerate(MEDIA.items()):
        name = f"{NAMES[place % len(NAMES)]}{suffix}"
        (directory / name).write_bytes(octets)
        yield name
