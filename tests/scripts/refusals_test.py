"""What the scripts refuse, and how they say so."""

import unittest

from house import House


class Refusals(unittest.TestCase):
    def setUp(self):
        self.house = self.enterContext(House())

    def assert_refused(self, words, *arguments, **options):
        status, said = self.house.run(*arguments, **options)
        self.assertEqual(status, 1, said)
        self.assertIn(words, said)
        self.assertEqual(len(said.strip().splitlines()), 1, said)
        self.assertEqual(self.house.runs(), [])

    def test_values_that_are_empty(self):
        for option in ("--root", "--shot", "--screen", "--card"):
            self.assert_refused(f"{option} needs a value that is not empty", option, "")
            self.assert_refused(f"{option} needs a value", option)

    def test_a_file_as_the_device(self):
        self.assert_refused("not a folder: ", "--root", self.house.place / "run")

    def test_names_that_are_too_long(self):
        name = "ä" * 128
        picture = self.house.top / f"{name}.png"
        for arguments in (
            ("--root", self.house.top / name / "a"), ("--shot", picture), ("--shot", self.house.top / name / "a.png"),
            ("--card", f"{name}={self.house.top}"), ("--card", f"a={self.house.top / name}"), (self.house.top / name,),
        ):
            self.assert_refused("a name is too long: ", *arguments)

    def test_keys_that_there_are_not(self):
        picture = self.house.top / "a.png"
        for steps, key in ((("Retrun",), "Retrun"), (("Down", "ctrl+Foo"), "Foo"), (("text:a", "Bar"), "Bar")):
            self.assert_refused(f"there is no key '{key}'", "--shot", picture, "--", *steps, display=None)
        self.assertFalse(picture.exists())


class Pictures(unittest.TestCase):
    def test_any_name_is_taken_as_it_stands(self):
        with House() as house:
            # In the program's place, a window of its name.
            (house.bin / "xwininfo").write_text("#!/bin/sh\necho IsViewable\n")
            for name in ("a%d.png", "b%03d", "gif:c.png", "-d.png"):
                status, said = house.run("--shot", house.top / name, "--", "Down", "ctrl+c", "eacute", display=None)
                self.assertEqual(status, 0, said)
                self.assertEqual((house.top / name).read_bytes()[:4], b"\x89PNG")


class Building(unittest.TestCase):
    def setUp(self):
        self.house = self.enterContext(House(is_installed=False))
        self.build = self.house.place / "build"

    def test_a_build_folder_of_others_is_said(self):
        self.assertEqual(self.house.run("--version")[0], 0)
        (self.build / "desktop").mkdir()
        (self.build / "desktop.log").write_text("an old log\n")
        (self.build / "lock").touch()
        for place in (self.build, self.build / "desktop", self.build / "lock", self.build / "desktop.log"):
            mode = place.stat().st_mode
            place.chmod(0o555)
            status, said = self.house.run()
            place.chmod(mode)
            self.assertEqual(status, 1, said)
            self.assertIn(f"cannot write to {place}, which belongs to {place.owner()}. Take the folder over: sudo chown", said)
            self.assertNotIn("an old log", said)

    def test_a_failed_build_shows_its_own_log(self):
        (self.build / "desktop.log").write_text("an old log\n")
        (self.house.bin / "cmake").write_text("#!/bin/sh\necho the fault\nexit 1\n")
        status, said = self.house.run()
        self.assertEqual(status, 1)
        self.assertIn("the fault", said)
        self.assertNotIn("an old log", said)

    def test_a_long_build_says_how_far_it_is(self):
        (self.house.bin / "cmake").write_text(
            '#!/bin/sh\n[ "$1" = --build ] || exit 0\nfor step in $(seq 80); do echo "[$step/80] Building"; done\nexit 1\n'
        )
        said = self.house.run()[1]
        shown = [line for line in said.splitlines() if line.endswith("%")]
        self.assertEqual(shown, [f"»   {percent} %" for percent in (25, 50, 75, 100)])
        self.assertIn("[80/80] Building", (self.build / "desktop.log").read_text())

    def test_measurements_that_there_are_not(self):
        runner = self.house.place / "tests/support/run_on_device.sh"
        runner.parent.mkdir(parents=True)
        runner.write_text(f"#!/bin/sh\necho \"$*\" >'{self.house.top}/measured'\n")
        runner.chmod(0o755)
        for arguments in (("listin",), ("listing", "Jobs"), ("",)):
            status, said = self.house.run(*arguments, script="bench")
            self.assertEqual(status, 1, said)
            self.assertIn(f"there is no measurement '{arguments[-1]}'", said)
            self.assertRegex(said, "These are there: .*jobs.*listing")
        self.assertFalse((self.house.top / "measured").exists())
        self.assertEqual(self.house.run("listing", "jobs", script="bench")[0], 0)
        self.assertIn("listing jobs", (self.house.top / "measured").read_text())

    def test_tests_that_there_are_not(self):
        for arguments in (("ui.lsit",), ("unit", "nothing"), ("[",)):
            status, said = self.house.run(*arguments, script="test")
            self.assertEqual(status, 1, said)
            self.assertIn(f"no test is called like '{arguments[-1]}'. These are there: ui.list unit.", said)
        self.assertFalse((self.house.top / "tested").exists())
        self.assertNotIn("--build", (self.house.top / "built").read_text(), "it is refused before anything is built")
        status, said = self.house.run("ui.list", script="test")
        self.assertEqual(status, 0, said)
        self.assertTrue((self.house.top / "tested").exists())
