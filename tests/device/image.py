"""The phone's executable and the desktop's, for the tests."""

import sys
from pathlib import Path

import pefile

HOUSE = Path(__file__).parents[2]
DEVICE = HOUSE / "platform/device"
PHONE_IMAGE = HOUSE / "build/device/TarvikFileManager.exe"
PHONE_PROGRAM = HOUSE / "build/device/platform/device/link/TarvikFileManager.elf"
DESKTOP_IMAGE = HOUSE / "build/desktop/TarvikFileManager.exe"

sys.path.insert(0, str(DEVICE / "link"))
from elf import Elf  # noqa: E402  pylint: disable=wrong-import-position
from write_imports import read_imports  # noqa: E402  pylint: disable=wrong-import-position


def listed_imports():
    """What the program may import: {library: {name or number}}."""
    return {library: {ordinal or name for name, ordinal in names}
            for library, names in read_imports(DEVICE / "imports.txt")}


def listed_names():
    return {name for _, names in read_imports(DEVICE / "imports.txt") for name, _ in names}


def program_symbols():
    """The places of the program's functions and data."""
    return Elf(PHONE_PROGRAM).addresses()


def imports(image):
    """What an executable imports: {library: {name or number}}."""
    return {entry.dll.decode(): {place.name.decode() if place.name else place.ordinal for place in entry.imports}
            for entry in image.DIRECTORY_ENTRY_IMPORT}


def resources(image):
    """An executable's resources: {(type, name, language): bytes}."""
    return {(kind.id, name.id, language.id): image.get_data(language.data.struct.OffsetToData, language.data.struct.Size)
            for kind in image.DIRECTORY_ENTRY_RESOURCE.entries
            for name in kind.directory.entries
            for language in name.directory.entries}


def open_image(path):
    return pefile.PE(str(path))
