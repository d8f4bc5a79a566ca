"""Writes the messages that the fuzzer of the hand begins with: one file for each kind, and one of all.

    make_hand_seeds.py FOLDER
"""

import pathlib
import struct
import sys


def number(value):
    return struct.pack("<I", value)


def text(value):
    return number(len(value)) + value


def message(kind, *fields):
    body = b"".join(fields)
    return number(len(body)) + number(kind) + body


CANCEL, NO, YES = message(9), message(8, number(0)), message(8, number(1))
SEEDS = {
    "hold": message(1, text(b"T")) + message(1, text(b"T/Sub")),
    "remove": message(2, text(b""), text(b"T"), number(1)) + YES,
    "remove-file": message(2, text(b"T"), text(b"a"), number(0)) + NO,
    "copy": message(3, text(b""), text(b"T"), number(1), text(b"To"), text(b"T"), number(0)) + YES + YES,
    "move": message(3, text(b""), text(b"t"), number(1), text(b"TO"), text(b"T"), number(1)) + YES + NO,
    "copy-beside": message(3, text(b""), text(b"a"), number(0), text(b""), text(b"copy of a"), number(0)),
    "into-itself": message(3, text(b""), text(b"T"), number(1), text(b"T/Sub"), text(b"T"), number(1)),
    "rename": message(4, text(b"T/a"), text(b"To/b"), number(0)) + message(4, text(b"a"), text(b"To/b"), number(1)),
    "remove-path": message(5, text(b"T/a")) + message(6, text(b"T/Sub")),
    "attributes": message(7, text(b"T/a"), number(7)) + message(7, text(b"t/A"), number(0)),
    "cancel": CANCEL + message(2, text(b""), text(b"T"), number(1)) + CANCEL,
    "outside": message(5, text(b"../kept")) + message(2, text(b".."), text(b".."), number(1)),
    "no-text": message(2, text(b"\xff"), text(b"\xc0\x80"), number(1)) + message(1, text(b"T\0a")),
    "short": message(4, text(b"T/a")) + number(70000) + number(2),
}

folder = pathlib.Path(sys.argv[1])
for name, seed in SEEDS.items():
    (folder / name).write_bytes(seed)
(folder / "all").write_bytes(b"".join(SEEDS.values()))
