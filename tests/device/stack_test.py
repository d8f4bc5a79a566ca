#!/usr/bin/python3
"""The build's check of the stack, on small programs that must not pass it."""

import subprocess
import tempfile
import unittest
from pathlib import Path

from image import DEVICE

LINK = DEVICE / "link"
LISTED = """
[indirect calls]
Dispatch: Handle*
[repeated calls]
Twice 2
[nested entries]
WinMainCRTStartup
WinMainCRTStartup
"""
FILL = "volatile char room[{}]; room[0] = 0;"


class StackTest(unittest.TestCase):
    def check(self, source):
        """What the check says of a program with this source."""
        with tempfile.TemporaryDirectory() as place:
            program, listed = Path(place, "program.elf"), Path(place, "stack_use.txt")
            listed.write_text(LISTED, encoding="ascii")
            subprocess.run(["arm-none-eabi-g++", "-x", "c++", "-", "-march=armv4t", "-marm", "-mthumb-interwork", "-Os",
                            "-fno-inline", "-fno-optimize-sibling-calls", "-fno-exceptions", "-fno-ipa-cp",
                            "-fno-ipa-pure-const", "-nostdlib", "-T", LINK / "image.ld", "-Wl,--no-warn-rwx-segments",
                            "-o", program], input=source, text=True, check=True)
            return subprocess.run(["/usr/bin/python3", "-B", LINK / "check_stack.py", program, listed],
                                  capture_output=True, text=True, check=False)

    def expect_refusal(self, source, words):
        told = self.check(source)
        self.assertEqual(told.returncode, 1)
        self.assertIn(words, told.stderr)

    def test_frames_along_the_deepest_chain_are_added(self):
        told = self.check(f"void Small() {{ {FILL.format(100)} }} void Large() {{ {FILL.format(1000)} }}"
                          f"void Both() {{ {FILL.format(2000)} Small(); Large(); Small(); }}"
                          'extern "C" void WinMainCRTStartup() { Both(); Small(); }')
        self.assertEqual((told.returncode, told.stderr), (0, ""))
        deepest = int(told.stdout.split("deepest entry ")[1].split(",")[0])
        self.assertTrue(3000 <= deepest < 3050, told.stdout)
        self.assertIn(f"entries within each other {2 * deepest}", told.stdout)

    def test_a_deep_chain_is_refused(self):
        self.expect_refusal(f"void A() {{ {FILL.format(8000)} }} void B() {{ {FILL.format(7000)} A(); }}"
                            'extern "C" void WinMainCRTStartup() { B(); }', "takes more than 14336 bytes")

    def test_a_deep_chain_behind_a_listed_pointer_is_refused(self):
        self.expect_refusal(f"void HandleA(int) {{ {FILL.format(15000)} }} void (*table)(int) = HandleA;"
                            "void Dispatch(int id) { table(id); asm(\"\"); }"
                            'extern "C" void WinMainCRTStartup() { Dispatch(1); }', "takes more than 14336 bytes")

    def test_an_unlisted_pointer_is_refused(self):
        self.expect_refusal("void A(int) {} void (*table)(int) = A; void Other(int id) { table(id); asm(\"\"); }"
                            'extern "C" void WinMainCRTStartup() { Other(1); }', "Other calls by a pointer")

    def test_recursion_is_refused(self):
        self.expect_refusal("volatile int n; void B(); void A() { if (n) B(); n = 1; } void B() { A(); n = 2; }"
                            'extern "C" void WinMainCRTStartup() { A(); }', "may call itself: A > B > A")

    def test_a_listed_repetition_counts_as_often_as_listed(self):
        told = self.check("volatile int n; void Other(); void Twice() {" + FILL.format(1000) + "if (n) Other(); n = 1; }"
                          "void Other() { Twice(); n = 2; }"
                          'extern "C" void WinMainCRTStartup() { Twice(); }')
        self.assertEqual(told.returncode, 0, told.stderr)
        self.assertTrue(2000 <= int(told.stdout.split("deepest entry ")[1].split(",")[0]) < 2060, told.stdout)

    def test_room_of_unknown_size_is_refused(self):
        self.expect_refusal("void Use(char*); volatile int n; void A() { char room[n]; room[0] = 1; n = room[n]; }"
                            'extern "C" void WinMainCRTStartup() { A(); }', "in a new way")


if __name__ == "__main__":
    unittest.main()
