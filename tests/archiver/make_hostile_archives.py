#!/usr/bin/env python3
"""Makes archives that mean harm, for the tests: make_hostile_archives.py FOLDER

A name that begins with "mixed-" holds a sound member good.txt, which must be extracted, and others that must
not be. Of one that begins with "refused-" nothing may be extracted. One that begins with "partly-" is
damaged: what comes of it is not foretold. No archive may be reported to be extracted as a whole.
"""

import pathlib
import struct
import sys
import zipfile
import zlib

GOOD = b"good\n"
EVIL = b"evil\n"
DATE = (2005, 7, 8, 9, 10, 12)
DOS_DATE = (2005 - 1980) << 25 | 7 << 21 | 8 << 16 | 9 << 11 | 10 << 5 | 6

HOSTILE_NAMES = {
    "climbs": "../evil.txt",
    "climbs-by-backslash": "..\\evil.txt",
    "climbs-far": "../../../../../../../../tmp/evil.txt",
    "climbs-from-inside": "folder/../../evil.txt",
    "climbs-mixed": "folder\\../..\\../evil.txt",
    "is-parent": "folder/..",
    "absolute": "/evil.txt",
    "absolute-backslash": "\\evil.txt",
    "drive": "C:\\evil.txt",
    "drive-relative": "Z:evil.txt",
    "share": "\\\\server\\share\\evil.txt",
    "share-by-slash": "//server/share/evil.txt",
    "letter-by-letter": "\\\\?\\E:\\evil.txt",
    "device-namespace": "\\\\.\\C:",
    "con": "CON",
    "nul": "nul.txt",
    "aux-inside": "folder/aux",
    "aux-folder": "aux/evil.txt",
    "com1": "COM1.tar.gz",
    "lpt-superscript": "LPT\u00b9",
    "conin": "CONIN$",
    "nul-blank": "NUL .txt",
    "trailing-dot": "evil.txt.",
    "trailing-blank": "evil.txt ",
    "trailing-dot-folder": "folder./evil.txt",
    "three-dots": ".../evil.txt",
    "stream": "good.txt:evil",
    "stream-type": "good.txt::$DATA",
    "control": "evil\x07.txt",
    "newline": "evil\n.txt",
    "pipe": "evil|x.txt",
    "wildcard": "evil*.txt",
    "question": "evil?.txt",
    "quote": 'evil".txt',
    "too-long-part": "e" * 300 + ".txt",
    "too-long": "evil/" * 7000 + "evil.txt",
}


def member(name, mode=None, method=zipfile.ZIP_STORED):
    """A member as Unix tools write it; `mode` may make it a link."""
    info = zipfile.ZipInfo(name, DATE)
    info.filename = name  # zipfile would mend what is wrong with it
    info.compress_type = method
    info.create_system = 3
    info.external_attr = (mode or 0o100644) << 16
    return info


def write_zip(path, *members):
    with zipfile.ZipFile(path, "w") as archive:
        for info, content in members:
            archive.writestr(info, content)


def hostile_zips(folder):
    good = (member("good.txt"), GOOD)
    for case, name in HOSTILE_NAMES.items():
        write_zip(folder / f"mixed-name-{case}.zip", good, (member(name), EVIL))
    for target in ("/tmp", "..", "C:\\"):
        case = {"/tmp": "absolute", "..": "up", "C:\\": "drive"}[target]
        write_zip(folder / f"mixed-link-{case}.zip", good, (member("link", 0o120777), target),
                  (member("link/../../evil.txt"), EVIL))
    write_zip(folder / "mixed-device-node.zip", good, (member("node", 0o020666), b""))
    write_zip(folder / "mixed-file-as-folder.zip", good, (member("good.txt/evil.txt"), EVIL))

    # Traps of size.
    zeros = bytes(1 << 20)
    honest = folder / "honest.tmp"
    with zipfile.ZipFile(honest, "w", zipfile.ZIP_DEFLATED) as archive:
        archive.writestr(member("good.txt"), GOOD)
        with archive.open(member("bomb.bin", method=zipfile.ZIP_DEFLATED), "w") as bomb:
            for _ in range(300):
                bomb.write(zeros)
    lying = bytearray(honest.read_bytes())
    honest.unlink()
    size = struct.pack("<I", 300 << 20)
    place = lying.find(size)
    while place >= 0:
        lying[place:place + 4] = struct.pack("<I", 1000)
        place = lying.find(size)
    (folder / "mixed-bomb-that-lies.zip").write_bytes(lying)
    (folder / "partly-overlapping.zip").write_bytes(overlapping_zip(2000))
    (folder / "refused-larger-than-any-disk.zip").write_bytes(huge_zip())

    # Damage.
    write_zip(folder / "sound.tmp", good, (member("evil.txt"), EVIL * 1000))
    sound = (folder / "sound.tmp").read_bytes()
    (folder / "sound.tmp").unlink()
    broken = bytearray(sound)
    broken[sound.find(EVIL) + 7] ^= 1
    (folder / "mixed-wrong-check.zip").write_bytes(broken)
    unknown = bytearray(sound)
    for mark, offset in ((b"PK\3\4", 8), (b"PK\1\2", 10)):
        place = unknown.rfind(mark)
        unknown[place + offset] = 97
    (folder / "mixed-unknown-method.zip").write_bytes(unknown)
    first = sound.find(b"evil.txt")
    for name, place in (("mixed-other-name-inside", first), ("partly-other-name-outside", sound.rfind(b"evil.txt"))):
        renamed = bytearray(sound)
        renamed[place:place + 8] = b"..\\e.txt"
        (folder / f"{name}.zip").write_bytes(renamed)
    encrypted = bytearray(sound)
    for mark, offset in ((b"PK\3\4", 6), (b"PK\1\2", 8)):
        place = encrypted.rfind(mark)
        encrypted[place + offset] |= 1
    (folder / "mixed-encrypted.zip").write_bytes(encrypted)
    (folder / "refused-empty-file.zip").write_bytes(b"")
    (folder / "refused-text.zip").write_bytes(b"This is no archive.\n" * 100)
    (folder / "refused-cut-off.zip").write_bytes(sound[:len(sound) // 2])
    (folder / "refused-only-end.zip").write_bytes(b"PK\5\6" + b"\xff" * 16 + b"\0\0")
    for step in range(0, len(sound) - 4, max(1, len(sound) // 60)):
        damaged = bytearray(sound)
        damaged[step:step + 4] = b"\xff\xff\xff\xff"
        (folder / f"partly-damaged-{step}.zip").write_bytes(damaged)


def overlapping_zip(count):
    """Many members that share one packed content."""
    content = zlib.compress(bytes(1 << 20), 9)[2:-4]
    check, size = zlib.crc32(bytes(1 << 20)), 1 << 20
    local = struct.pack("<4s5H3I2H", b"PK\3\4", 20, 0, 8, 0, 33, check, len(content), size, 8, 0) + b"evil.bin" + content
    entries = b""
    for number in range(count):
        name = b"%08d" % number
        entries += struct.pack("<4s6H3I5H2I", b"PK\1\2", 20, 20, 0, 8, 0, 33, check, len(content), size, len(name),
                               0, 0, 0, 0, 0, 0) + name
    return local + entries + struct.pack("<4s4H2IH", b"PK\5\6", 0, 0, count, count, len(entries), len(local), 0)


def huge_zip():
    """A stored member that claims to hold nearly all that 64 bits can count."""
    claim = struct.pack("<HH2Q", 1, 16, (1 << 63) - 2, 100)
    local = struct.pack("<4s5H3I2H", b"PK\3\4", 45, 0, 8, 0, 33, 0, 0xFFFFFFFF, 0xFFFFFFFF, 8, len(claim))
    local += b"evil.bin" + claim + bytes(100)
    entry = struct.pack("<4s6H3I5H2I", b"PK\1\2", 45, 45, 0, 8, 0, 33, 0, 0xFFFFFFFF, 0xFFFFFFFF, 8, len(claim),
                        0, 0, 0, 0, 0) + b"evil.bin" + claim
    return local + entry + struct.pack("<4s4H2IH", b"PK\5\6", 0, 0, 1, 1, len(entry), len(local), 0)


def crc16(content):
    check = 0
    for byte in content:
        check ^= byte
        for _ in range(8):
            check = check >> 1 ^ 0xA001 if check & 1 else check >> 1
    return check


def lha_member(name, content, method=b"-lh0-", folder=b"", check=None, size=None):
    """A member with a header of level 2. The folder's parts end in 0xFF."""
    fields = b""
    for kind, text in ((1, name), (2, folder)):
        if text:
            fields += struct.pack("<HB", len(text) + 3, kind) + text
    fields += b"\0\0"
    header = struct.pack("<5sIIIBBHc", method, len(content), len(content) if size is None else size, 1120813812,
                         0x20, 2, crc16(content) if check is None else check, b"U") + fields
    return struct.pack("<H", len(header) + 2) + header + content


def lha_old_member(name, content):
    """A member with a header of level 0, as the oldest programs wrote it."""
    header = struct.pack("<5sIIIBBB", b"-lh0-", len(content), len(content), DOS_DATE, 0x20, 0, len(name)) + name
    header += struct.pack("<H", crc16(content))
    return bytes([len(header), sum(header) & 0xFF]) + header + content


def hostile_lhas(folder):
    def write(name, *members, end=b"\0"):
        (folder / name).write_bytes(b"".join(members) + end)

    good = lha_member(b"good.txt", GOOD)
    for case, name in HOSTILE_NAMES.items():
        if not case.startswith("too-long"):
            write(f"mixed-name-{case}.lzh", good, lha_member(name.encode(), EVIL))
    write("mixed-climbs.lzh", good, lha_member(b"evil.txt", EVIL, folder=b"..\xff..\xff"))
    write("mixed-climbs-in-name.lzh", good, lha_member(b"../evil.txt", EVIL))
    write("mixed-climbs-by-backslash.lzh", good, lha_member(b"..\\..\\evil.txt", EVIL))
    write("mixed-absolute.lzh", good, lha_member(b"evil.txt", EVIL, folder=b"\xfftmp\xff"))
    write("mixed-old-climbs.lzh", lha_old_member(b"good.txt", GOOD), lha_old_member(b"..\\..\\evil.txt", EVIL))
    write("mixed-old-absolute.lzh", lha_old_member(b"good.txt", GOOD), lha_old_member(b"\\tmp\\evil.txt", EVIL))
    write("mixed-old-drive.lzh", lha_old_member(b"good.txt", GOOD), lha_old_member(b"C:\\evil.txt", EVIL))
    write("mixed-drive-folder.lzh", good, lha_member(b"evil.txt", EVIL, folder=b"C:\xff"))
    write("mixed-link.lzh", good, lha_member(b"link|/tmp", b"", b"-lhd-"),
          lha_member(b"evil.txt:x", EVIL, folder=b"link\xff"))

    write("mixed-wrong-check.lzh", good, lha_member(b"evil.txt", EVIL, check=1))
    write("mixed-unknown-method.lzh", good, lha_member(b"evil.txt", EVIL, b"-lh9-"))
    write("mixed-larger-than-it-says.lzh", good, lha_member(b"evil.txt", EVIL, size=2))
    write("mixed-smaller-than-it-says.lzh", good, lha_member(b"evil.txt", EVIL, size=2000))
    write("mixed-packed-nonsense.lzh", good, lha_member(b"evil.txt", bytes(range(256)) * 4, b"-lh5-", size=100000))
    write("partly-bomb.lzh", good, lha_member(b"evil.txt", bytes(100), b"-lh5-", size=0xFFFFFFFF))
    write("mixed-cut-off.lzh", good, lha_member(b"evil.txt", EVIL * 100)[:-50], end=b"")
    write("mixed-cut-off-in-header.lzh", good, lha_member(b"evil.txt", EVIL)[:30], end=b"")
    write("refused-empty-file.lzh", end=b"")
    write("refused-text.lzh", b"This is no archive.\n" * 100, end=b"")
    sound = good + lha_member(b"evil.txt", EVIL * 100) + b"\0"
    for step in range(0, 120, 4):
        damaged = bytearray(sound)
        damaged[step:step + 4] = b"\xff\xff\xff\xff"
        write(f"partly-damaged-{step:03}.lzh", bytes(damaged), end=b"")


def main():
    folder = pathlib.Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    hostile_zips(folder)
    hostile_lhas(folder)


if __name__ == "__main__":
    main()
