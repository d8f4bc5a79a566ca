"""How ./run ends, what it leaves when it is killed, and what the next start makes of it."""

import os
import re
import signal
import subprocess
import unittest

from house import HOUSE, House, eventually, processes_with


class Ending(unittest.TestCase):
    def setUp(self):
        self.house = self.enterContext(House())

    def test_nothing_stays_after_the_program_or_the_run_has_ended(self):
        for end in (lambda _: self.house.end_program(), lambda process: process.send_signal(signal.SIGINT)):
            for display in (":stand-in", None):
                process = self.house.start_shown(display=display)
                end(process)
                process.wait(20)
                self.assertEqual(self.house.runs(), [])
                self.assertTrue(eventually(lambda: not self.house.processes()))

    def test_a_program_that_outlives_its_run_goes_on_and_takes_the_folder(self):
        for display in (":stand-in", None):
            process = self.house.start_shown(display=display)
            program = self.house.program()
            self.house.kill(process)
            status, said = self.house.run("\\Windows", display=display)
            self.assertEqual(status, 0, said)
            self.assertIn("running already", said)
            self.assertEqual(self.house.program(), program)
            self.assertEqual(self.house.handed_over()[-1:], ["\\Windows"])

            self.house.end_program()
            process = self.house.start_shown(display=display)
            self.assertNotEqual(self.house.program(), program)
            self.house.end_program()
            process.wait(20)

    def test_another_device_needs_the_end_of_a_program_that_outlives_its_run(self):
        self.house.kill(self.house.start_shown())
        status, said = self.house.run("--screen", "320x240")
        self.assertEqual(status, 1, said)
        self.assertIn("the device is running already. Close it first", said)

    def test_the_next_start_clears_what_a_killed_one_left(self):
        process = self.house.start_shown(display=None)
        left = self.house.runs()
        services = processes_with("TARVIK_RUN", self.house.data / left[0])
        self.assertGreaterEqual(len(services), 2, "the screen and the page")
        self.house.kill(process)
        self.house.end_program()

        process = self.house.start_shown()
        self.assertEqual(processes_with("TARVIK_RUN", self.house.data / left[0]), [])
        self.assertEqual(len(self.house.runs()), 1)
        self.assertNotEqual(self.house.runs(), left)

    def test_a_folder_of_a_run_that_lives_is_not_cleared(self):
        first = self.house.start("--shot", self.house.top / "a.png", "--", "wait:99999", display=None)
        self.assertTrue(eventually(self.house.runs), first.said())
        left = self.house.runs()
        second = self.house.start("--shot", self.house.top / "b.png", "--", "wait:99999", display=None)
        self.assertTrue(eventually(lambda: len(self.house.runs()) == 2), second.said())
        self.house.kill(second)
        third = self.house.start("--shot", self.house.top / "c.png", "--", "wait:99999", display=None)
        self.assertTrue(eventually(lambda: len(self.house.runs()) == 2 and third.poll() is None), third.said())
        self.assertIn(left[0], self.house.runs())
        self.assertIsNone(first.poll())

    def test_a_killed_run_leaves_no_card_that_blocks(self):
        root = self.house.top / "root"
        root.mkdir()
        (root / "Documents").mkdir()
        (root / "mine").symlink_to(self.house.home)
        arguments = ("--root", root, "--card", f"Music={self.house.home}")
        for _ in range(2):
            process = self.house.start_shown(*arguments)
            self.assertTrue((root / "Music").is_symlink())
            self.house.kill(process)
            self.house.end_program()
        process = self.house.start_shown()
        self.assertFalse((root / "Music").is_symlink())
        self.assertTrue((root / "mine").is_symlink(), "what is not ours stays")

    def test_a_refused_card_leaves_the_entry_that_was_there(self):
        root = self.house.top / "root"
        root.mkdir()
        (root / "Music").symlink_to(self.house.home)
        status, said = self.house.run("--root", root, "--card", f"music={self.house.top}")
        self.assertEqual(status, 1, said)
        self.assertIn("the device has '\\music' already", said)
        self.assertTrue((root / "Music").is_symlink())

    def test_a_program_of_the_person_does_not_hold_the_device(self):
        opener = self.house.bin / "xdg-open"
        opener.write_text(f"#!/bin/sh\nls /proc/self/fd >'{self.house.top}/open'\n")
        opener.chmod(0o755)
        lock = os.open(self.house.top / "lock", os.O_CREAT | os.O_RDWR)
        subprocess.run(
            ["bash", "-c", '"$0" "$1" 9>&"$2"', HOUSE / "platform/desktop/host/open_on_host", HOUSE / "README.md", str(lock)],
            env=self.house.environment | {"TARVIK_HOST": "yes"},
            pass_fds=[lock],
            check=True,
        )
        self.assertNotIn("9", (self.house.top / "open").read_text().split())


class TwoStarts(unittest.TestCase):
    def setUp(self):
        self.house = self.enterContext(House())

    def test_of_two_at_once_the_second_waits_and_hands_over(self):
        signal_to_go = self.house.top / "go"
        first = self.house.start(START_AWAITS=str(signal_to_go))
        self.assertTrue(eventually(self.house.runs), first.said())
        second = self.house.start("\\Windows")
        self.assertTrue(eventually(lambda: "waiting for it" in second.said()), second.said())
        signal_to_go.touch()
        self.assertEqual(second.wait(60), 0, second.said())
        self.assertEqual(self.house.handed_over(), ["\\Windows"])
        self.assertIsNone(first.poll())

    def test_in_the_browser_view_the_address_is_repeated(self):
        first = self.house.start_shown(display=None)
        address = re.search(r"http://\S+", first.said())[0]
        status, said = self.house.run(display=None)
        self.assertEqual(status, 0, said)
        self.assertIn(address, said)

    def test_one_that_comes_while_the_device_ends_starts_it_anew(self):
        first = self.house.start_shown()
        first.send_signal(signal.SIGTERM)
        second = self.house.start("--screen", "320x240")
        first.wait(20)
        self.assertTrue(eventually(self.house.program), second.said())
        self.assertIsNone(second.poll())


class Filling(unittest.TestCase):
    SEED = HOUSE / "platform/desktop/image/seed.sh"

    def setUp(self):
        self.house = self.enterContext(House())
        self.whole = self.house.top / "whole"
        subprocess.run([self.SEED, self.whole], check=True)

    def interrupted(self, tool):
        """A device whose filling ended at this tool."""
        device = self.house.top / f"device-{tool}"
        device.mkdir()
        bin = self.house.top / f"bin-{tool}"
        bin.mkdir()
        (bin / tool).write_text("#!/bin/sh\nkill -9 $PPID\n")
        (bin / tool).chmod(0o755)
        subprocess.run([self.SEED, device], env=os.environ | {"PATH": f"{bin}:{os.environ['PATH']}"},
                       stderr=subprocess.DEVNULL, check=False)
        return device

    def assert_whole(self, device):
        found = subprocess.run(["diff", "-r", self.whole, device], capture_output=True, text=True, check=False)
        self.assertEqual(found.stdout, "")

    def test_one_that_was_interrupted_is_completed(self):
        for tool in ("xargs", "cp", "chmod", "mv"):
            device = self.interrupted(tool)
            self.assertFalse((device / "Windows").exists(), tool)
            subprocess.run([self.SEED, device], check=True)
            self.assert_whole(device)

    def test_so_is_a_folder_given_as_the_device(self):
        device = self.interrupted("chmod")
        process = self.house.start_shown("--root", device)
        self.assertTrue((device / "My Documents/Welcome.txt").exists(), process.said())

    def test_deletions_and_changes_last(self):
        (self.whole / "My Documents/Welcome.txt").unlink()
        (self.whole / "Windows/Chime.wav").unlink()
        (self.whole / "Windows/device.ini").write_text("changed")
        subprocess.run([self.SEED, self.whole], check=True)
        self.assertFalse((self.whole / "My Documents/Welcome.txt").exists())
        self.assertTrue((self.whole / "Windows/Chime.wav").exists(), "the ROM is complete")
        self.assertEqual((self.whole / "Windows/device.ini").read_text(), "changed")
        self.assertFalse((self.whole / ".filling").exists())
