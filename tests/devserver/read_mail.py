"""Reads a message file with Python's own parser and prints what it found as one line of JSON."""

import email
import email.policy
import email.utils
import hashlib
import json
import sys


def addresses(message, name):
    header = message[name]
    return [[a.display_name, a.addr_spec] for a in header.addresses] if header else []


def describe(part):
    content = b"" if part.is_multipart() else part.get_payload(decode=True)
    return {
        "type": part.get_content_type(),
        "disposition": part.get_content_disposition(),
        "filename": part.get_filename(),
        "cid": part["Content-ID"],
        "size": len(content),
        "sha256": hashlib.sha256(content).hexdigest(),
        "text": content.decode(part.get_content_charset()) if part.get_content_charset() else None,
    }


with open(sys.argv[1], "rb") as file:
    octets = file.read()
message = email.message_from_bytes(octets, policy=email.policy.default)
parts = list(message.walk())
lines = octets.split(b"\r\n")
print(json.dumps({
    "headers": [name for name, _ in message.items()],
    "subject": message["Subject"],
    "from": addresses(message, "From"),
    "to": addresses(message, "To"),
    "cc": addresses(message, "Cc"),
    "reply_to": addresses(message, "Reply-To"),
    "message_id": message["Message-ID"],
    "has_date": message["Date"].datetime is not None,
    "parts": [describe(part) for part in parts],
    "defects": [repr(d) for part in parts for d in part.defects + [e for v in part.values() for e in v.defects]],
    "longest_line": max(map(len, lines)),
    "has_bare_line_ends": any(b"\r" in line or b"\n" in line for line in lines),
    "is_seven_bit": octets.isascii(),
}))
