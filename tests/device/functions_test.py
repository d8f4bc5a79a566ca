#!/usr/bin/python3
"""Plain functions of the phone's executable, called in the phone's convention with what the desktop's program was
called with: both must answer the same. Takes the desktop's lines from a file, or makes them."""

import struct
import subprocess
import sys
import unittest
from collections import Counter

from image import HOUSE, PHONE_IMAGE, PHONE_PROGRAM, Elf
from phone.phone import Phone

ANSWERS = HOUSE / "build/desktop/tests/device_answers.exe"
LOCALE = 0x400
ROOM = 600  # characters
PATH_SIZE, LENGTH_AT = 524, 520


def desktop_lines():
    """The desktop's calls: [(function, arguments and answer)]."""
    told = subprocess.run([HOUSE / "tests/support/run_on_device.sh", ANSWERS], stdout=subprocess.PIPE, text=True,
                          check=True).stdout
    for line in told.splitlines():
        function, *parts = line.split("\t")
        yield function, [bytes.fromhex(part[1:]).decode("utf-16-be", "surrogatepass") if part.startswith("'")
                         else int(part) for part in parts]


class Callee:
    """The phone's functions, each with the arguments and answers of a line of the same name."""

    def __init__(self):
        self.phone = Phone(str(PHONE_IMAGE))
        self.machine = self.phone.machine
        self.places = {}
        for symbol in Elf(PHONE_PROGRAM).symbols():
            name = self.plain(symbol.name)
            if name:
                self.places[name] = symbol.address
        self.room = self.machine.allocate(2 * ROOM)
        self.path = self.machine.allocate(PATH_SIZE)
        self.records = [self.machine.allocate(560) for _ in range(2)]
        self.items = [self.machine.allocate(128) for _ in range(2)]
        self.folder = self.machine.new_text("\\F")
        self.formats = [self.machine.new_text("%s KB"), self.machine.new_text("[%s MB]")]
        self.mark = self.machine.heap.next
        self.call("LoadDecimalSeparator", LOCALE)

    @staticmethod
    def plain(mangled):
        """The function's own name, of a function of the program itself or of Path."""
        for start in ("_ZN4Path", "_Z"):
            digits = mangled[len(start):len(start) + 2]
            if mangled.startswith(start) and digits[:1].isdigit():
                size = digits if digits.isdigit() else digits[0]
                return mangled[len(start) + len(size):len(start) + len(size) + int(size)]
        return None

    def call(self, name, *words):
        return self.machine.call(self.places[name], *words)

    def text(self, text):
        """A text as the program passes it: its length and its place."""
        return len(text.encode("utf-16-le", "surrogatepass")) // 2, self.machine.new_text(text)

    def part(self, name, *words):
        """Calls a function that answers with a part of a text."""
        self.call(name, self.room, *words)
        length, place = self.machine.words(self.room, 2)
        return [self.machine.read(place, 2 * length).decode("utf-16-le", "surrogatepass")]

    def in_path(self, name, *words):
        """Calls a function that fills a path."""
        self.machine.write(self.path, bytes(PATH_SIZE))
        fits = self.call(name, self.path, *words)
        text = self.machine.text(self.path)
        assert self.machine.word(self.path + LENGTH_AT) == len(text.encode("utf-16-le", "surrogatepass")) // 2
        return [fits & 1, text]

    # --- By the names of the lines ---

    def FormatSize(self, size):
        self.call("FormatSize", size, size >> 32, self.room, 32, *self.formats, LOCALE)
        return [self.machine.text(self.room)]

    def FormatInteger(self, plain):
        self.machine.put_text(self.room, plain)
        self.call("FormatInteger", self.room, 24, LOCALE)
        return [self.machine.text(self.room)]

    def FormatDateTime(self, ticks, mode, capacity):
        self.machine.write(self.path, struct.pack("<Q", ticks))
        self.phone.FileTimeToSystemTime(self.path, self.path + 8)
        self.machine.write(self.room, bytes(80))
        self.call("FormatDateTime", self.path + 8, self.room, capacity, mode, LOCALE)
        return [self.machine.text(self.room)]

    def AssignChild(self, folder, name):
        return self.in_path("AssignChild", *self.text(folder), *self.text(name))

    def AssignPattern(self, folder):
        return self.in_path("AssignPattern", *self.text(folder))

    def AssignCopyName(self, folder, name, number):
        return self.in_path("AssignCopyName", *self.text(folder), *self.text(name), number)

    def LeafOf(self, path):
        return self.part("LeafOf", *self.text(path))

    def ParentOf(self, path):
        return self.part("ParentOf", *self.text(path))

    def ExtensionOf(self, name):
        return self.part("ExtensionOf", *self.text(name))

    def NameToReselect(self, path, previous):
        return self.part("NameToReselect", *self.text(path), *self.text(previous))

    def nameMatches(self, name, pattern):
        name, pattern = self.text(name), self.text(pattern)
        for length, place in (name, pattern):
            self.call("FoldCase", place, length)
        return [self.call("nameMatches", *name, *pattern) & 1]

    def _compare(self, function, attributes, ticks, size, name, *rest):
        entries = (attributes, ticks, size, name), rest[:4]
        for record, item, (attributes, ticks, size, name) in zip(self.records, self.items, entries):
            self.machine.write(record, struct.pack("<IQQQIII", attributes, ticks, ticks, ticks, 0, size, 0))
            self.machine.put_text(record + 40, name)
            self.call("MakeFileItem", item, self.folder, record)
        answer = self.call(function, *self.items, rest[4])
        return [(answer > 0) - 2 * (answer >> 31)]

    def CompareByName(self, *words):
        return self._compare("CompareByName", *words)

    def CompareByType(self, *words):
        return self._compare("CompareByType", *words)

    def CompareBySize(self, *words):
        return self._compare("CompareBySize", *words)

    def CompareByDate(self, *words):
        return self._compare("CompareByDate", *words)


class FunctionsTest(unittest.TestCase):
    def test_both_answer_the_same(self):
        callee = Callee()
        counts, differences = Counter(), []
        for function, parts in desktop_lines():
            run = getattr(callee, function)
            taken = run.__code__.co_argcount - 1 or len(parts) - 1
            callee.machine.heap.next = callee.mark
            answer = run(*parts[:taken])
            counts[function] += 1
            if answer != parts[taken:]:
                differences.append(f"{function}{parts[:taken]}: {answer} on the phone, {parts[taken:]} here")
        print(f"{sum(counts.values())} calls of {len(counts)} functions", file=sys.stderr)
        self.assertEqual(differences[:10], [], f"{len(differences)} of them")
        self.assertGreater(min(counts.values()), 300, counts)
        self.assertEqual(len(counts), 15, counts)


if __name__ == "__main__":
    unittest.main()
