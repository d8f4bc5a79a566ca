"""The documents name what there is."""

import os
import subprocess
import unittest

from house import HOUSE


class Documents(unittest.TestCase):
    def test_every_command_is_named(self):
        text = (HOUSE / "CONTRIBUTING.md").read_text() + (HOUSE / "README.md").read_text()
        commands = [file.name for file in HOUSE.iterdir() if file.is_file() and os.access(file, os.X_OK)]
        self.assertGreaterEqual(len(commands), 5)
        for command in commands:
            self.assertIn(f"    ./{command} ", text)

    def test_the_readme_shows_every_option_of_run(self):
        told = subprocess.run([HOUSE / "run", "--help"], capture_output=True, text=True, check=True).stdout
        readme = (HOUSE / "README.md").read_text()
        for line in told.splitlines():
            option = line.split()[0] if line.startswith("  --") else None
            if option and option != "--from-menu":  # that one is the menu entry's
                self.assertIn(f"./run {option}", readme)
