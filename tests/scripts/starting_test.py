"""What ./run starts the program with, and where it shows it."""

import re
import unittest

from house import House


class Locale(unittest.TestCase):
    """The person's locale reaches the program and the host's programs; the scripts' work has its own."""

    def setUp(self):
        self.house = self.enterContext(House())
        (self.house.bin / "locale").write_text(
            "#!/bin/sh\ncase ${LC_ALL:-${LC_CTYPE:-$LANG}} in *.UTF-8) echo UTF-8 ;; *) echo ANSI_X3.4-1968 ;; esac\n"
        )
        (self.house.bin / "locale").chmod(0o755)
        for name in [name for name in self.house.environment if name.startswith(("LC_", "LANG"))]:
            del self.house.environment[name]

    def locale_of_program(self, display=":stand-in", **given):
        process = self.house.start_shown(display=display, **given)
        found = self.house.environment_of_program()
        self.house.end_program()
        process.wait(20)
        return {name: value for name, value in found.items() if name.startswith("LC_") or name == "LANG"}

    def test_it_is_the_persons(self):
        for given in ({"LANG": "de_DE.UTF-8", "LC_TIME": "fr_FR.UTF-8"}, {"LC_ALL": "de_DE.UTF-8"}):
            for display in (":stand-in", None):
                self.assertEqual(self.locale_of_program(display, **given), given)

    def test_names_of_files_are_read_in_any(self):
        names = {"LC_CTYPE": "C.UTF-8"}
        self.assertEqual(self.locale_of_program(), names)
        self.assertEqual(self.locale_of_program(LANG="de_DE", LC_TIME="C"), names | {"LANG": "de_DE", "LC_TIME": "C"})
        self.assertEqual(self.locale_of_program(LC_ALL="C", LC_TIME="de_DE"), names | {"LANG": "C"})

    def test_a_picture_is_the_same_everywhere(self):
        picture = self.house.top / "a.png"
        process = self.house.start("--shot", picture, "--", "wait:3000", display=None, LC_ALL="de_DE.UTF-8")
        environment = self.house.environment_of_program()
        self.assertEqual(environment["LC_ALL"], "C.UTF-8", process.said())


class OnAPage(unittest.TestCase):
    def setUp(self):
        self.house = self.enterContext(House())

    def test_page_is_shown_also_with_a_display(self):
        first = self.house.start_shown("--page")
        address = re.search(r"http://\S+", first.said())
        self.assertTrue(address, first.said())
        self.assertNotIn("No display", first.said())
        self.assertNotEqual(self.house.environment_of_program()["DISPLAY"], ":stand-in")
        status, said = self.house.run("--page")
        self.assertEqual(status, 0, said)
        self.assertIn(address[0], said)

    def test_a_window_does_not_become_a_page(self):
        self.house.start_shown()
        status, said = self.house.run("--page")
        self.assertEqual(status, 1, said)
        self.assertIn("the device is running already, in a window. Close it first", said)

    def test_a_picture_has_no_page(self):
        status, said = self.house.run("--page", "--shot", self.house.top / "a.png")
        self.assertEqual(status, 1, said)
        self.assertIn("a picture is taken without a page", said)
