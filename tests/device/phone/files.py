"""The file system and the registry, as coredll answers for them."""

import struct
from fnmatch import fnmatchcase

from .core import lower

NO_HANDLE = 0xFFFFFFFF
NO_ATTRIBUTES = 0xFFFFFFFF
FOLDER, FILE = 0x10, 0x20
NOT_FOUND, NO_MORE = 2, 18
TEXT, BINARY, NUMBER = 1, 3, 4


class Files:
    """Part of the phone: needs `machine`. `files` are the contents of files by path; of a folder, None."""

    def __init__(self):
        super().__init__()
        self.files = {}
        self.time = 127984320000000000  # of all files

    def add_folder(self, path):
        self.files[path] = None

    def add_file(self, path, content=b""):
        self.files[path] = content

    def find(self, path):
        """The stored spelling of a path that is there."""
        wanted = lower(path.rstrip("\\"))
        return next((each for each in self.files if lower(each) == wanted), None)

    def attributes(self, path):
        return FOLDER if self.files[path] is None else FILE

    def GetFileAttributesW(self, path):
        text = self.machine.text(path)
        found = self.find(text)
        if not text.rstrip("\\"):
            return FOLDER
        if found is None:
            self.last_error = NOT_FOUND
            return NO_ATTRIBUTES
        return self.attributes(found)

    def _write_found(self, out, path):
        size = len(self.files[path] or b"")
        record = struct.pack("<IQQQIII", self.attributes(path), self.time, self.time, self.time, 0, size, 77)
        self.machine.write(out, record)
        self.machine.put_text(out + 40, path.rpartition("\\")[2], 260)

    def FindFirstFileW(self, pattern, out):
        folder, _, names = self.machine.text(pattern).rpartition("\\")
        names = "*" if names == "*.*" else lower(names)
        found = [path for path in self.files
                 if lower(path.rpartition("\\")[0]) == lower(folder) and fnmatchcase(lower(path.rpartition("\\")[2]), names)]
        if not found:
            self.last_error = NO_MORE if names == "*" else NOT_FOUND
            return NO_HANDLE
        self._write_found(out, found[0])
        return self.handle({"found": found[1:]})

    def FindNextFileW(self, search, out):
        left = self.handles[search]["found"]
        if not left:
            return self.fail(NO_MORE)
        self._write_found(out, left.pop(0))
        return True

    def FindClose(self, search):
        del self.handles[search]
        return True

    def FindFirstChangeNotificationW(self, _folder, _below, _kinds):
        return self.handle({"watch": True})

    def FindNextChangeNotification(self, _watch):
        return True

    def FindCloseChangeNotification(self, watch):
        del self.handles[watch]
        return True

    def GetDiskFreeSpaceExW(self, _path, free, total, all_free):
        for place, size in ((free, 20 << 20), (total, 64 << 20), (all_free, 20 << 20)):
            if place:
                self.machine.write(place, struct.pack("<Q", size))
        return True

    def SHGetSpecialFolderPath(self, _owner, out, number, _create):
        folder = {0x02: "\\Windows\\Start Menu\\Programs", 0x05: "\\My Documents", 0x06: "\\Windows\\Favorites",
                  0x0B: "\\Windows\\Start Menu", 0x10: "\\Windows\\Desktop", 0x14: "\\Windows\\Fonts", 0x24: "\\Windows",
                  0x26: "\\Program Files"}.get(number)
        if not folder:
            return False
        self.machine.put_text(out, folder)
        return True

    def GetModuleFileNameW(self, _module, out, capacity):
        return self.machine.put_text(out, "\\Program Files\\Tarvik File Manager\\TarvikFileManager.exe", capacity)


class Registry:
    """Part of the phone: needs `machine`. `registry` holds {key's path: {value's name: (type, bytes)}}."""

    ROOTS = {0x80000000: "HKCR", 0x80000001: "HKCU", 0x80000002: "HKLM"}

    def __init__(self):
        super().__init__()
        self.registry = {}

    def _path(self, key, name):
        above = self.ROOTS.get(key) or self.handles[key]["key"]
        name = self.machine.text(name)
        return f"{above}\\{name}" if name else above

    def _key(self, path):
        return next((each for each in self.registry if lower(each) == lower(path)), None)

    def RegOpenKeyExW(self, key, name, _options, _rights, out):
        path = self._key(self._path(key, name))
        if not path:
            return NOT_FOUND
        self.machine.put_word(out, self.handle({"key": path}))
        return 0

    def RegCreateKeyExW(self, key, name, _reserved, _class, _options, _rights, _security, out, disposition):
        path = self._path(key, name)
        self.registry.setdefault(self._key(path) or path, {})
        self.machine.put_word(out, self.handle({"key": self._key(path)}))
        if disposition:
            self.machine.put_word(disposition, 1)
        return 0

    def RegCloseKey(self, key):
        del self.handles[key]
        return 0

    def RegQueryValueExW(self, key, name, _reserved, kind, out, size):
        values = self.registry[self.handles[key]["key"]]
        name = self.machine.text(name) or ""
        if name not in values:
            return NOT_FOUND
        kept, content = values[name]
        if kind:
            self.machine.put_word(kind, kept)
        if out:
            if self.machine.word(size) < len(content):
                self.machine.put_word(size, len(content))
                return 234
            self.machine.write(out, content)
        if size:
            self.machine.put_word(size, len(content))
        return 0

    def RegSetValueExW(self, key, name, _reserved, kind, content, size):
        self.registry[self.handles[key]["key"]][self.machine.text(name) or ""] = kind, self.machine.read(content, size)
        return 0

    def RegEnumKeyExW(self, key, index, out, size, _reserved, _class, _class_size, _time):
        above = self.handles[key]["key"] + "\\"
        names = sorted({path[len(above):].split("\\")[0] for path in self.registry if path.startswith(above)})
        if index >= len(names):
            return 259
        self.machine.put_word(size, self.machine.put_text(out, names[index], self.machine.word(size)))
        return 0
