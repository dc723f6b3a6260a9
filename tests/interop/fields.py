"""Converts the header fields that tshark prints to the form of `lummms show --json`."""

import datetime
import re


class Difference(Exception):
    """What tshark prints differs from the octets that it read."""


CHARSETS = {3: "ascii", 4: "latin-1", 106: "utf-8"}  # by their IANA numbers


def encoded_text(octets):
    """Reads a Text-string or an Encoded-string-value (length, charset, text); returns the octets and the charset."""
    charset, at = 106, 0
    if octets[0] < 0x20:
        length, at = (octets[0], 1) if octets[0] < 31 else uintvar(octets, 1)
        assert at + length == len(octets), octets
        size = 0 if octets[at] & 0x80 else octets[at]
        charset = int.from_bytes(octets[at + 1:at + 1 + size], "big") if size else octets[at] & 0x7F
        at += 1 + size
    return octets[at:].partition(b"\0")[0].removeprefix(b"\x7f"), CHARSETS.get(charset)  # without its quote


def uintvar(octets, at):
    value = 0
    while octets[at] & 0x80:
        value, at = value << 7 | octets[at] & 0x7F, at + 1
    return value << 7 | octets[at], at + 1


def value(shown, octets):
    """Reads a text from its octets and checks what tshark prints, which treats all texts as ASCII.

    None for a text in an unknown charset.
    """
    raw, charset = encoded_text(octets)
    if charset is None:
        return None
    if shown.removeprefix("\x7f") not in (raw.decode(charset), raw.decode("ascii", "replace")):
        raise Difference(f"{shown!r} for {raw!r}")
    return raw.decode(charset)


def text(shown, octets):
    return value(shown, octets[1:])


def address(shown, octets):
    """An address, without the type suffix of a phone number."""
    whole = text(shown, octets)
    return whole and whole.removesuffix("/TYPE=PLMN")


def sender(shown, octets):
    """Reads length, token and address; empty if the network is to insert the address."""
    length, at = (octets[1], 2) if octets[1] < 31 else uintvar(octets, 2)
    assert at + length == len(octets), octets
    return "" if octets[at] == 0x81 else address(shown, octets[at:])


def number(shown, _):
    return int(shown, 0)


def yes(shown, _):
    return {"0x80": True, "0x81": False}[shown]


def show(shown, _):
    return {"0x80": False, "0x81": True}[shown]


def seconds(shown, _):
    return int(shown.partition(".")[0])


def moment(shown, _):
    shown = re.sub(r"\.0+| UTC|Z$", "", shown)
    form = "%Y-%m-%dT%H:%M:%S" if "T" in shown[:11] else "%b %d, %Y %H:%M:%S"
    return datetime.datetime.strptime(re.sub(" +", " ", shown), form).isoformat() + "Z"


# our name of a field, tshark's name, and the reader for what tshark prints
FIELDS = [
    ("messageType", "message_type", number),
    ("transactionId", "transaction_id", text),
    ("version", "mms_version", lambda shown, _: shown),
    ("date", "date", moment),
    ("from", "from", sender),
    ("to", "to", address),
    ("cc", "cc", address),
    ("bcc", "bcc", address),
    ("subject", "subject", text),
    ("messageId", "message_id", text),
    ("messageClass", "message_class.id", number),
    ("priority", "priority", number),
    ("status", "status", number),
    ("responseStatus", "response_status", number),
    ("responseText", "response_text", text),
    ("messageSize", "message_size", number),
    ("contentLocation", "content_location", text),
    ("deliveryTime", "delivery_time.abs", moment),
    ("deliveryDelay", "delivery_time.rel", seconds),
    ("expiryTime", "expiry.abs", moment),
    ("expiry", "expiry.rel", seconds),
    ("senderVisibility", "sender_visibility", show),
    ("deliveryReport", "delivery_report", yes),
    ("readReply", "read_report", yes),
    ("reportAllowed", "report_allowed", yes),
    ("retrieveStatus", "retrieve_status", number),
    ("retrieveText", "retrieve_text", text),
    ("readStatus", "read_status", number),
    ("replyCharging", "reply_charging", number),
    ("replyChargingId", "reply_charging_id", text),
    ("replyChargingSize", "reply_charging_size", number),
]
LISTS = ("to", "cc", "bcc")
# the codes of those that are not in the header record, or do not fit there
OTHER_CODES = {0x0E: "messageSize", 0x19: "retrieveStatus", 0x1A: "retrieveText", 0x1B: "readStatus",
               0x1C: "replyCharging", 0x1E: "replyChargingId", 0x1F: "replyChargingSize"}


def of_tshark(message):
    """The fields that tshark printed, in our form; the first of each that may only occur once."""
    fields = {}
    for name, known, reader in FIELDS:
        shown, raw = message.get("mmse." + known), message.get(f"mmse.{known}_raw")
        if shown is None:
            continue
        if not isinstance(shown, list):
            shown, raw = [shown], [raw]
        wanted = len(shown) if name in LISTS else 1
        values = [reader(each, bytes.fromhex(octets[0])) for each, octets in zip(shown[:wanted], raw)]
        fields[name] = values if name in LISTS else values[0]
    return fields


def of_lummms(shown):
    """The same fields from `lummms show --json`."""
    def whole(entry):
        if entry["type"] == 2:
            return ""
        return f"{entry['name']} <{entry['address']}>" if entry["name"] else entry["address"]

    header = {OTHER_CODES.get(field.get("code")): field.get("value", field.get("text"))
              for field in reversed(shown["otherFields"])}
    header.update(shown["header"], date=shown.get("date"))
    header = {name: header[name] for name, *_ in FIELDS if header.get(name) is not None}
    for name in LISTS:
        if name in header:
            header[name] = [whole(entry) for entry in header[name]]
    if "from" in header:
        header["from"] = whole(header["from"])
    return header


def parts(message):
    """The parts that tshark read: type, names and octets."""
    body = message["wsp.post.data"]["Multipart body"]
    tree, raw = body["wsp.multipart_tree"], body["wsp.multipart_raw"]
    if not isinstance(tree, list):
        tree, raw = [tree], [raw]
    return [part(each, bytes.fromhex(octets[0])) for each, octets in zip(tree, raw, strict=True)]


def part(tree, octets):
    parameters, headers = tree.get("wsp.header.content_type_tree", {}), tree.get("wsp.headers", {})
    name, place = "wsp.parameter.name", "wsp.header.content_location"
    return {
        "octets": octets,
        "contentType": tree["wsp.header.content_type"],
        "name": value(parameters[name], bytes.fromhex(parameters[name + "_raw"][0])) if name in parameters else None,
        "contentLocation": text(headers[place], bytes.fromhex(headers[place + "_raw"][0])) if place in headers else None,
        "contentId": headers.get("wsp.header.content_id"),
    }
