#!/usr/bin/python3
"""Looks into the phone's installer: cab_check.py PACKAGE.cab. Does what the phone does with it, on a folder of this
machine, and compares what comes out byte for byte."""

import re
import struct
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as xml
from pathlib import Path

HOUSE = Path(__file__).parents[2]
MANUAL = HOUSE / "platform/desktop/image/files/Windows"
PLACES = {"%CE1%": "Program Files", "%CE2%": "Windows", "%CE17%": "Windows/Start Menu"}
PROGRAM_FOLDER = "Program Files/Tarvik File Manager"
CABINET = None


class Installed:
    """The phone after installing: `files` and `shortcuts` by their paths."""

    def __init__(self, cabinet, work):
        subprocess.run(["cabextract", "--quiet", "--directory", work, cabinet], check=True)
        self.extracted = {path.name: path.read_bytes() for path in Path(work).iterdir()}
        document = xml.fromstring(self.extracted["_setup.xml"])
        self.install = {parm.get("name"): parm for parm in document.find("characteristic[@type='Install']")}
        self.files, self.shortcuts, self.folders, self.sources = {}, {}, [], []
        for folder in document.find("characteristic[@type='FileOperation']"):
            self.folders.append(folder)
            for entry in folder.findall("characteristic"):
                if entry.get("type") != "MakeDir":
                    self._put(f"{self.on_phone(folder)}/{entry.get('type')}", entry)

    def _put(self, path, entry):
        operation = entry.find("characteristic")
        source = operation.find("parm[@name='Source']").get("value")
        if operation.get("type") == "Extract":
            self.files[path] = self.extracted[source]
            self.sources.append(source)
        elif operation.get("type") == "Shortcut":
            self.shortcuts[path] = source.replace("%InstallDir%", PROGRAM_FOLDER).replace("\\", "/")

    @staticmethod
    def on_phone(folder):
        if folder.get("translation") != "install":
            raise AssertionError(f"{folder.get('type')} would be taken by its word")
        place = folder.get("type").replace("%InstallDir%", PROGRAM_FOLDER)
        for name, meant in PLACES.items():
            place = place.replace(name, meant)
        return place.replace("\\", "/")


class CabTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        work = tempfile.TemporaryDirectory()
        cls.addClassCleanup(work.cleanup)
        cls.phone = Installed(CABINET, work.name)

    def test_the_program_and_its_license_are_installed(self):
        self.assertEqual(self.phone.files[f"{PROGRAM_FOLDER}/TarvikFileManager.exe"],
                         (HOUSE / "build/device/TarvikFileManager.exe").read_bytes())
        self.assertEqual(self.phone.files[f"{PROGRAM_FOLDER}/License.txt"].replace(b"\r\n", b"\n"),
                         (HOUSE / "LICENSE").read_bytes())

    def test_the_manual_is_where_the_program_looks_for_it(self):
        name = "File Manager_user_manual.htm"
        self.assertEqual(self.phone.files[f"Windows/{name}"], (MANUAL / name).read_bytes())

    def test_every_picture_of_the_manual_is_there_and_fits_the_phone(self):
        shown = re.findall(rb'<img src="([^"]*)" width="(\d+)"', self.phone.files["Windows/File Manager_user_manual.htm"])
        self.assertGreater(len(shown), 40)
        pictures = {path: content for path, content in self.phone.files.items() if path.endswith(".png")}
        self.assertEqual({f"Windows/{name.decode().replace('%20', ' ')}" for name, _ in shown}, set(pictures))
        for name, width in shown:
            content = pictures[f"Windows/{name.decode().replace('%20', ' ')}"]
            self.assertEqual(struct.unpack(">I", content[16:20])[0], int(width), f"{name} is shown as it is")
            self.assertLessEqual(int(width), 216)
            self.assertLess(len(content), 20 * 1024)

    def test_nothing_else_is_installed(self):
        others = [path for path in self.phone.files if not path.startswith((PROGRAM_FOLDER, "Windows/File Manager_"))]
        self.assertEqual(others, [])
        self.assertEqual(set(self.phone.extracted) - set(self.phone.sources), {"_setup.xml"})
        self.assertEqual(len(set(self.phone.sources)), len(self.phone.sources))

    def test_the_start_menu_leads_to_the_program(self):
        self.assertEqual(self.phone.shortcuts, {"Windows/Start Menu/Tarvik File Manager.lnk":
                                                f"{PROGRAM_FOLDER}/TarvikFileManager.exe"})
        self.assertIn(f"{PROGRAM_FOLDER}/TarvikFileManager.exe", self.phone.files)

    def test_it_says_how_much_there_is(self):
        said = {name: parm.get("value") for name, parm in self.phone.install.items()}
        self.assertEqual(said["InstallPhase"], "install")
        self.assertEqual((said["OSVersionMin"], said["OSVersionMax"]), ("5.0", "6.99"))
        self.assertEqual((said["BuildNumberMin"], said["BuildNumberMax"]), ("0", "-536870912"))
        self.assertEqual(said["InstallDir"], "%CE1%\\Tarvik File Manager")
        self.assertEqual(self.phone.install["InstallDir"].get("translation"), "install")
        self.assertEqual(int(said["NumFiles"]), len(self.phone.files))
        self.assertEqual(int(said["NumDirs"]), len(self.phone.folders) - 1, "all but that of the shortcut")
        self.assertEqual((said["NumRegKeys"], said["NumRegVals"], said["NumShortcuts"]), ("0", "0", "1"),
                         "settings stay when the program is removed")

    def test_every_folder_is_made_before_it_is_filled(self):
        for folder in self.phone.folders:
            self.assertEqual(folder[0].get("type"), "MakeDir")

    def test_names_in_the_cabinet_are_short(self):
        for name in self.phone.sources:
            self.assertRegex(name, r"^[A-Z0-9]{1,8}\.[0-9]{3}$")

    def test_it_is_packed(self):
        size = CABINET.stat().st_size
        self.assertLess(size, sum(map(len, self.phone.files.values())))
        self.assertLess(size, 512 * 1024)


if __name__ == "__main__":
    CABINET = Path(sys.argv.pop(1))
    unittest.main()
