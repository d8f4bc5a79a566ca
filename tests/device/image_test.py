#!/usr/bin/python3
"""The phone's executable as it lies on the disk: what its loader reads, what it imports, its resources, its size."""

import struct
import subprocess
import unittest

from icons import pictures
from image import (DESKTOP_IMAGE, PHONE_IMAGE, imports, listed_imports, listed_names, open_image, program_symbols,
                   resources)

KILOBYTE = 1024
ICON, MENU, DIALOG, ICON_GROUP = 3, 4, 5, 14


class HeaderTest(unittest.TestCase):
    """What the phone's loader looks at first."""

    def setUp(self):
        self.image = open_image(PHONE_IMAGE)
        self.head = self.image.OPTIONAL_HEADER

    def test_it_is_a_program_for_the_phone(self):
        self.assertEqual(self.image.FILE_HEADER.Machine, 0x1C0, "ARM")
        self.assertEqual(self.head.Magic, 0x10B)
        self.assertEqual((self.head.Subsystem, self.head.MajorSubsystemVersion, self.head.MinorSubsystemVersion),
                         (9, 5, 1))
        self.assertEqual(self.image.FILE_HEADER.Characteristics, 0x10F)
        self.assertEqual(self.head.ImageBase, 0x10000)
        self.assertFalse(self.image.get_warnings())

    def test_its_sections_are_apart_by_their_rights(self):
        rights = {section.Name.rstrip(b"\0").decode(): section.Characteristics >> 28 for section in self.image.sections}
        read, write, execute = 4, 8, 2
        self.assertEqual(rights, {".text": read | execute, ".rdata": read, ".data": read | write, ".rsrc": read})

    def test_its_sections_follow_each_other_and_lie_in_the_file(self):
        place = 0x1000
        for section in self.image.sections:
            self.assertEqual(section.VirtualAddress, place)
            self.assertEqual(section.PointerToRawData % 0x200, 0)
            self.assertLessEqual(section.PointerToRawData + section.SizeOfRawData, PHONE_IMAGE.stat().st_size)
            place += (section.Misc_VirtualSize + 0xFFF) // 0x1000 * 0x1000
        self.assertEqual(self.head.SizeOfImage, place)

    def test_its_entry_is_that_of_the_run_time(self):
        self.assertEqual(self.head.ImageBase + self.head.AddressOfEntryPoint, program_symbols()["WinMainCRTStartup"])

    def test_its_stack_is_what_its_threads_may_have_too(self):
        self.assertEqual((self.head.SizeOfStackReserve, self.head.SizeOfStackCommit), (128 * KILOBYTE, 4 * KILOBYTE))

    def test_other_readers_understand_it(self):
        told = subprocess.run(["file", "--brief", PHONE_IMAGE], capture_output=True, text=True, check=True).stdout
        self.assertIn("PE32 executable (Windows CE) ARM", told)
        told = subprocess.run(["llvm-readobj", "--file-headers", "--sections", "--coff-imports", "--coff-resources",
                               PHONE_IMAGE], capture_output=True, text=True, check=True)
        self.assertEqual(told.stderr, "")
        self.assertIn("Subsystem: IMAGE_SUBSYSTEM_WINDOWS_CE_GUI", told.stdout)


class SizeTest(unittest.TestCase):
    def test_the_file_is_small(self):
        self.assertLess(PHONE_IMAGE.stat().st_size, 256 * KILOBYTE)

    def test_it_takes_little_memory_to_load(self):
        self.assertLess(open_image(PHONE_IMAGE).OPTIONAL_HEADER.SizeOfImage, 288 * KILOBYTE)


class ImportTest(unittest.TestCase):
    """A library or a call that the phone lacks keeps the whole program from starting."""

    def test_only_what_is_listed_is_imported(self):
        self.assertEqual(imports(open_image(PHONE_IMAGE)), listed_imports())

    def test_all_that_is_listed_is_called(self):
        self.assertEqual(listed_names() - program_symbols().keys(), set(), "listed, but nothing calls it")

    def test_the_addresses_lie_where_the_loader_may_write(self):
        image = open_image(PHONE_IMAGE)
        data = next(section for section in image.sections if section.Name.startswith(b".data"))
        place = image.OPTIONAL_HEADER.DATA_DIRECTORY[12]
        self.assertTrue(data.contains_rva(place.VirtualAddress))
        self.assertTrue(data.contains_rva(place.VirtualAddress + place.Size - 1))
        for entry in image.DIRECTORY_ENTRY_IMPORT:
            self.assertTrue(data.contains_rva(entry.struct.FirstThunk))


class ResourceTest(unittest.TestCase):
    """Menus, dialogs, texts and the rest are the desktop's; icons are for the phone."""

    def setUp(self):
        self.phone = resources(open_image(PHONE_IMAGE))
        self.desktop = resources(open_image(DESKTOP_IMAGE))

    def test_all_but_icons_are_the_same(self):
        def others(found):
            return {path: content for path, content in found.items() if path[0] not in (ICON, ICON_GROUP)}
        self.assertGreater(len(others(self.phone)), 80)
        self.assertEqual(others(self.phone), others(self.desktop))

    def test_dialogs_and_menus_are_of_the_form_that_the_phone_reads(self):
        for (kind, name, _), content in self.phone.items():
            first = struct.unpack("<HH", content[:4])
            if kind == DIALOG:
                self.assertNotEqual(first, (1, 0xFFFF), f"dialog {name} is extended")
            if kind == MENU:
                self.assertEqual(first, (0, 0), f"menu {name} is extended")

    def test_the_same_icons_are_there(self):
        def groups(found):
            return {path for path in found if path[0] == ICON_GROUP}
        self.assertEqual(groups(self.phone), groups(self.desktop))

    def test_icons_have_the_sizes_and_colours_that_the_phone_draws(self):
        for path, picture in pictures(self.phone):
            with self.subTest(icon=path):
                self.assertIn(picture.size, (16, 32))
                self.assertEqual(picture.bits, 8)
        sizes = {}
        for path, picture in pictures(self.phone):
            sizes.setdefault(path, set()).add(picture.size)
        self.assertEqual(set(map(frozenset, sizes.values())), {frozenset((16, 32))})

    def test_icons_look_like_the_desktops(self):
        desktop = {(path, picture.size): picture for path, picture in pictures(self.desktop)}
        for path, picture in pictures(self.phone):
            with self.subTest(icon=path, size=picture.size):
                for ours, theirs in zip(picture.pixels, desktop[path, picture.size].pixels, strict=True):
                    self.assertEqual(ours is None, theirs is None, "drawn or not")
                    self.assertTrue(ours is None or all(abs(a - b) < 8 for a, b in zip(ours, theirs)))


if __name__ == "__main__":
    unittest.main()
