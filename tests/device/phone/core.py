"""Memory, texts, time, numbers and threads, as coredll answers them."""

import re
import struct
from datetime import datetime, timedelta
from decimal import ROUND_HALF_UP, Decimal

from .machine import ProcessEnd

TICKS = 10_000_000  # of a file's time, in a second
HOURS_AHEAD = 9
TIMED_OUT = 0x102


class Core:
    """Part of the phone: needs `machine`."""

    def __init__(self):
        super().__init__()
        self.last_error = 0
        self.handles = {}
        self.next_handle = 0x1000
        self.now = (2006, 11, 3, 17, 14, 5, 9, 0)  # a Friday; year, month, weekday, day, hour, minute, second, ms
        self.ticks = 1000
        self.memory_left = None  # None: as much as is asked for
        self.blocks = {}

    def handle(self, thing):
        self.next_handle += 4
        self.handles[self.next_handle] = thing
        return self.next_handle

    def fail(self, error):
        self.last_error = error
        return 0

    def GetLastError(self):
        return self.last_error

    # --- Memory ---

    def malloc(self, size):
        if self.memory_left is not None:
            if size > self.memory_left:
                return 0
            self.memory_left -= size
        place = self.machine.allocate(max(size, 1))
        self.blocks[place] = size
        self.machine.write(place, b"\xCD" * size)
        return place

    def free(self, place):
        if place:
            size = self.blocks.pop(place)  # fails for what was never given or is given back twice
            self.machine.write(place, b"\xDD" * size)
            self.machine.heap.give_back(place, size)

    def LocalAlloc(self, flags, size):
        place = self.malloc(size)
        if place and flags & 0x40:
            self.machine.write(place, bytes(size))
        return place

    def LocalFree(self, place):
        self.free(place)
        return 0

    def VirtualAlloc(self, _place, size, _kind, _rights):
        return self.machine.allocate(size)

    def VirtualFree(self, _place, _size, _kind):
        return True

    def memcpy(self, to, source, size):
        self.machine.expect_room(to, size)
        self.machine.expect_room(source, size)
        self.machine.write(to, self.machine.read(source, size))
        return to

    memmove = memcpy

    def memset(self, to, value, size):
        self.machine.expect_room(to, size)
        self.machine.write(to, bytes([value & 0xFF]) * size)
        return to

    # --- Texts ---

    def wcslen(self, place):
        return len(self.machine.text(place).encode("utf-16-le", "surrogatepass")) // 2

    def wcscpy(self, to, source):
        text = self.machine.text(source)
        self.machine.expect_room(to, 2 * len(text) + 2)
        self.machine.put_text(to, text)
        return to

    def _find(self, place, unit, find):
        at = find(self.machine.text(place) + "\0", chr(unit & 0xFFFF))
        return place + 2 * at if at >= 0 else 0

    def wcschr(self, place, unit):
        return self._find(place, unit, str.find)

    def wcsrchr(self, place, unit):
        return self._find(place, unit, str.rfind)

    def wcscmp(self, a, b):
        a, b = self.machine.text(a), self.machine.text(b)
        return (a > b) - (a < b)

    def _wcsicmp(self, a, b):
        a, b = lower(self.machine.text(a)), lower(self.machine.text(b))
        return (a > b) - (a < b)

    def towlower(self, unit):
        return ord(lower(chr(unit & 0xFFFF)))

    def CharUpperBuffW(self, place, count):
        text = self.machine.read(place, 2 * count).decode("utf-16-le", "surrogatepass")
        self.machine.write(place, upper(text).encode("utf-16-le", "surrogatepass"))
        return count

    def _wtol(self, place):
        number = re.match(r"\s*([-+]?\d+)", self.machine.text(place))
        return int(number[1]) if number else 0

    def _vsnwprintf(self, out, capacity, form, arguments):
        """What the program uses of it: %s, %d, %u, %x, %f, %c, with widths, and %I64u."""
        def fill(found):
            nonlocal arguments
            size, kind = found["size"], found["kind"]
            if kind == "%":
                return "%"
            if kind == "f":
                value, = struct.unpack("<d", self.machine.read(arguments, 8))
                arguments += 8
            elif size:
                value, = struct.unpack("<q" if kind in "di" else "<Q", self.machine.read(arguments, 8))
                arguments += 8
            else:
                value = self.machine.signed(arguments, 1)[0] if kind in "di" else self.machine.word(arguments)
                arguments += 4
            if kind == "s":
                value = self.machine.text(value)
            return ("%" + found["width"] + ("d" if kind == "u" else kind)) % value

        text = re.sub(r"%(?P<width>[-0-9.]*)(?P<size>I64|ll)?l?(?P<kind>[sdiuxXfc%])", fill, self.machine.text(form))
        units = text.encode("utf-16-le", "surrogatepass")
        fits = len(units) // 2 < capacity
        self.machine.write(out, (units + b"\0\0")[:2 * capacity])
        return len(units) // 2 if fits else -1

    # --- Numbers and times, as in the United States ---

    def GetLocaleInfoW(self, _locale, kind, out, capacity):
        return self.machine.put_text(out, {14: "."}[kind], capacity) + 1

    def _put_formatted(self, text, out, capacity):
        if len(text) + 1 > capacity:
            return 0
        return self.machine.put_text(out, text) + 1

    def GetNumberFormatW(self, _locale, _flags, number, _format, out, capacity):
        number = self.machine.text(number)
        if not re.fullmatch(r"-?(\d+\.?\d*|\.\d+)", number):
            return 0
        rounded = Decimal(number).quantize(Decimal("0.01"), ROUND_HALF_UP)
        return self._put_formatted(f"{rounded:,.2f}", out, capacity)

    def GetDateFormatW(self, _locale, _flags, time, _format, out, capacity):
        year, month, _, day = struct.unpack("<4H", self.machine.read(time, 8))
        return self._put_formatted(f"{month}/{day}/{year}", out, capacity)

    def GetTimeFormatW(self, _locale, _flags, time, _format, out, capacity):
        hour, minute, second = struct.unpack("<3H", self.machine.read(time + 8, 6))
        text = f"{hour % 12 or 12}:{minute:02}:{second:02} {'PM' if hour >= 12 else 'AM'}"
        return self._put_formatted(text, out, capacity)

    def GetLocalTime(self, out):
        self.machine.write(out, struct.pack("<8H", *self.now))

    def GetTickCount(self):
        self.ticks += 10
        return self.ticks

    def FileTimeToLocalFileTime(self, time, out):
        ticks, = struct.unpack("<Q", self.machine.read(time, 8))
        self.machine.write(out, struct.pack("<Q", ticks + HOURS_AHEAD * 3600 * TICKS))
        return True

    def FileTimeToSystemTime(self, time, out):
        ticks, = struct.unpack("<Q", self.machine.read(time, 8))
        if ticks >> 63:
            return False
        at = datetime(1601, 1, 1) + timedelta(microseconds=ticks // 10)
        self.machine.write(out, struct.pack("<8H", at.year, at.month, at.isoweekday() % 7, at.day, at.hour, at.minute,
                                            at.second, at.microsecond // 1000))
        return True

    def CompareFileTime(self, a, b):
        a, b = (struct.unpack("<Q", self.machine.read(place, 8))[0] for place in (a, b))
        return (a > b) - (a < b)

    # --- Threads: none but the first runs by itself; one that is waited for runs then. ---

    def CreateThread(self, _security, _size, start, parameter, _flags, _id):
        return self.handle({"start": start, "parameter": parameter, "ended": None})

    def GetExitCodeThread(self, thread, out):
        self.machine.put_word(out, self.handles[thread]["ended"])
        return True

    def WaitForSingleObject(self, thing, _time):
        waited = self.handles[thing]
        if "start" not in waited:
            return 0 if waited.get("event") else TIMED_OUT
        if waited["ended"] is None:
            waited["ended"] = self.machine.on_other_stack(
                lambda: self.machine.call(waited["start"], waited["parameter"]))
        return 0

    def CreateEventW(self, _security, _manual, state, _name):
        return self.handle({"event": state})

    def EventModify(self, event, what):
        self.handles[event]["event"] = what == 3
        return True

    def CreateMutexW(self, _security, _own, name):
        self.last_error = 0
        return self.handle({"mutex": self.machine.text(name)})

    def CloseHandle(self, handle):
        del self.handles[handle]  # fails for one that is closed twice
        return True

    def _ignore_section(self, _section):
        return 0

    InitializeCriticalSection = EnterCriticalSection = LeaveCriticalSection = DeleteCriticalSection = _ignore_section

    def TerminateProcess(self, process, code):
        if process != 66:
            return False
        raise ProcessEnd(code)

    # --- Libraries ---

    def LoadLibraryW(self, _name):
        return 0

    def GetModuleHandleW(self, name):
        return {"coredll.dll": 0x77000000, "aygshell.dll": 0x77100000}[self.machine.text(name)]

    def GetProcAddressW(self, library, name):
        name = f"aygshell_{name}" if name < 0x10000 else self.machine.text(name)
        return self.machine.address_of(name) if library and name not in self.missing else 0

    def GetVersionExW(self, out):
        self.machine.write(out + 4, struct.pack("<4I", 5, 1, 195, 3))
        return True


def one_to_one(change, text):
    """Changes the letters that stay one letter."""
    return "".join(change(each) if len(change(each)) == 1 else each for each in text)


def lower(text):
    return one_to_one(str.lower, text)


def upper(text):
    return one_to_one(str.upper, text)
