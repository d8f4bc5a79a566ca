"""The phone of ./run and that of the tests are made in one place."""

import unittest

from house import HOUSE

# What makes a phone: its prefix, its drive, its files, its screen.
STEPS = ("cp -al ", "ln -sfn ", "/seed.sh", "Xvfb -displayfd")


def scripts():
    """The shell scripts, with what they say."""
    for folder in ("", "scripts", "tests/support"):
        for file in (HOUSE / folder).iterdir():
            if file.is_file() and file.suffix in ("", ".sh"):
                text = file.read_text(errors="replace")
                if "bash" in text.partition("\n")[0]:
                    yield file, text


class OnePhone(unittest.TestCase):
    def test_each_step_is_in_one_script(self):
        for step in STEPS:
            found = [file.name for file, text in scripts() if step in text]
            self.assertEqual(len(found), 1, f"'{step}' is in {found}")
