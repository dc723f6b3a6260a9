#!/usr/bin/env python3
"""Compares lummms and tshark: both read the messages that lummms writes and those in the folders.

Usage: interop_test.py PATH-OF-LUMMMS FOLDER-OF-MESSAGES...

Every header field that tshark prints must be what was put in; of the messages in the folders, what lummms shows.
"""

import itertools
import json
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

import capture
import fields
import media

# option: what is typed (None for an option without a value), the field, what tshark reads
OPTIONS = {
    "from": ("+15550101", "from", "+15550101"),
    "to": (["anna@example.net", "+15550101"], "to", ["anna@example.net", "+15550101"]),
    "cc": (["+15550101"], "cc", ["+15550101"]),
    "bcc": (["anna@example.net"] * 3, "bcc", ["anna@example.net"] * 3),
    "subject": ("A day at the lake", "subject", "A day at the lake"),
    "date": ("2044-11-21T10:00:59Z", "date", "2044-11-21T10:00:59Z"),
    "class": ("informational", "messageClass", 130),
    "priority": ("high", "priority", 130),
    "expiry": ("2147483647", "expiry", 2147483647),
    "delivery-time": ("2087-01-01T00:00:00Z", "deliveryTime", "2087-01-01T00:00:00Z"),
    "delivery-report": (None, "deliveryReport", True),
    "read-reply": (None, "readReply", True),
    "sender-visibility": ("hide", "senderVisibility", False),
    "message-id": ("M-7710@mms.example.net", "messageId", "M-7710@mms.example.net"),
    "transaction-id": ("T-2f81c6", "transactionId", "T-2f81c6"),
    "version": ("1.2", "version", "1.2"),
    "content-location": ("http://mms.example.net/?id=7710", "contentLocation", "http://mms.example.net/?id=7710"),
    "size": ("2147483647", "messageSize", 2147483647),
    "status": ("deferred", "status", 131),
    "report-allowed": ("no", "reportAllowed", False),
    "response-status": ("error-content-not-accepted", "responseStatus", 135),
    "response-text": ("Not today", "responseText", "Not today"),
}
# the kinds of message, their numbers, and the options that each takes
KINDS = {
    "send-req": (128, "transaction-id version date from to cc bcc subject class expiry delivery-time priority "
                      "sender-visibility delivery-report read-reply"),
    "send-conf": (129, "transaction-id version response-status response-text message-id"),
    "notification": (130, "transaction-id version from subject class size expiry content-location"),
    "notifyresp": (131, "transaction-id version status report-allowed"),
    "retrieve-conf": (132, "transaction-id version message-id date from to cc bcc subject class priority "
                           "delivery-report read-reply"),
    "acknowledge": (133, "transaction-id version report-allowed"),
    "delivery": (134, "version transaction-id to date status"),
}
TEXTS = ["Grüße aus Köln", "Привет", "Καλημέρα", "שלום עולם", "مرحبا", "नमस्ते", "สวัสดี", "お元気ですか", "写真", "사진",
         "é", "\u0080 first", "😀", "a" * 29, "a" * 30, "é" * 14 + "a", "é" * 15, "長" * 41, "a" * 128 + "é",
         "x" * 20000, "\"quoted\"", "a=b;c", " blanks ", "tab\tand line\nend"]
ADDRESSES = ["грета@пример.example", "ü@example.net", "用户@example.net", "a+b@example.net", "*123#", "0049-89.1"]


class Interop(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.directory = pathlib.Path(directory.name)

    def lummms(self, *arguments):
        return subprocess.run([LUMMMS, *arguments], stdout=subprocess.PIPE, stderr=subprocess.PIPE, cwd=self.directory)

    def compose(self, *arguments):
        run = self.lummms("compose", "-o", "-", *arguments)
        self.assertEqual((run.returncode, run.stderr), (0, b""), arguments)
        return run.stdout

    def tshark(self, messages):
        """What tshark reads of the messages, after checking that it reports no error."""
        path = self.directory / "capture.pcap"
        capture.write(path, messages)
        self.assertEqual(capture.complaints(path), "")
        read = capture.read(path)
        self.assertEqual(list(read), list(range(len(messages))))
        return list(read.values())

    def test_each_kind_with_each_field(self):
        messages, expected = [], []
        for kind, (number, options) in KINDS.items():
            typed, fields_put_in = ["--kind", kind], {"messageType": number}
            for option in options.split():
                values, field, value = OPTIONS[option]
                for each in values if isinstance(values, list) else [values]:
                    typed += [f"--{option}"] if each is None else [f"--{option}", each]
                fields_put_in[field] = value
            if kind in ("send-req", "retrieve-conf"):
                typed += ["--slide", "5s", "text:Hello"]
            messages.append(self.compose(*typed))
            expected.append(fields_put_in)
        for (kind, put_in, read) in zip(KINDS, expected, self.tshark(messages)):
            with self.subTest(kind):
                self.assertEqual(fields.of_tshark(read), put_in)
        unused = set(OPTIONS) - set(" ".join(options for _, options in KINDS.values()).split())
        self.assertEqual(unused, set())

    def test_texts_and_addresses_in_many_scripts(self):
        messages = [self.compose("--from", address, "--to", "+1", "--to", address, "--subject", text,
                                 "--slide", "5s", f"text:{text}")
                    for text, address in zip(TEXTS, itertools.cycle(ADDRESSES))]
        for text, address, read in zip(TEXTS, itertools.cycle(ADDRESSES), self.tshark(messages)):
            with self.subTest(text):
                header = fields.of_tshark(read)
                self.assertEqual((header["subject"], header["from"], header["to"]), (text, address, ["+1", address]))

    def test_parts_of_each_media_type(self):
        names = list(media.write(self.directory))
        attached = [argument for name in names for argument in ("--attach", name)]
        message = self.compose("--to", "+1", "--slide", "5s", "text:Hello", *attached)
        read = self.tshark([message])[0]
        self.assertEqual(read["wsp.header.content_type"], "application/vnd.wap.multipart.related")
        parts = fields.parts(read)
        self.assertEqual(parts[0]["contentId"], f'"{read["wsp.header.content_type_tree"]["wsp.parameter.start"]}"')
        for name, part in zip(names, parts[2:], strict=True):
            with self.subTest(name):
                self.assertEqual((part["contentType"], part["contentLocation"], part["name"]),
                                 (media.MEDIA[pathlib.Path(name).suffix][0], name, name))
                self.assertTrue(part["octets"].endswith((self.directory / name).read_bytes()))

    def test_what_lummms_shows(self):
        files = sorted(file for folder in FOLDERS for file in folder.iterdir() if file.is_file())
        path = self.directory / "capture.pcap"
        capture.write(path, [file.read_bytes() for file in files])
        read = capture.read(path)
        self.assertGreater(len(read), 20)
        for place, message in read.items():
            with self.subTest(files[place].name):
                theirs = fields.of_tshark(message)
                ours = fields.of_lummms(json.loads(self.lummms("show", "--json", files[place]).stdout))
                unread = [name for name, value in theirs.items() if value is None]
                self.assertEqual({**ours, **dict.fromkeys(unread)}, theirs)


if __name__ == "__main__":
    LUMMMS = os.path.abspath(sys.argv[1])
    FOLDERS = [pathlib.Path(folder).resolve() for folder in sys.argv[2:]]
    unittest.main(argv=sys.argv[:1])
