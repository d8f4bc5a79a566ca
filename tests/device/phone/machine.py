"""The processor and its memory: runs the image, hands its calls of the platform out, calls its functions.

Every import leads to a place of its own outside of the image. There the processor is stopped, the call is answered
in Python, and it goes on where it was called from: an answer may so call into the program itself.
"""

import inspect
import struct

import pefile
from unicorn import (UC_ARCH_ARM, UC_HOOK_CODE, UC_HOOK_MEM_READ, UC_HOOK_MEM_UNMAPPED, UC_HOOK_MEM_WRITE, UC_MODE_ARM,
                     Uc, UcError)
from unicorn.arm_const import UC_ARM_REG_LR, UC_ARM_REG_PC, UC_ARM_REG_R0, UC_ARM_REG_R1, UC_ARM_REG_SP

PAGE = 0x1000
HEAP, HEAP_SIZE = 0x01000000, 0x02000000
HEAP_END = HEAP + HEAP_SIZE
BETWEEN_BLOCKS = 16
STACKS, STACK_SIZE = 0x08000000, 0x20000
STACK_COUNT = 8
TRAPS, TRAPS_SIZE = 0x0F000000, 0x10000
RETURN = TRAPS + TRAPS_SIZE - 4
READ, WRITE, EXECUTE = 1, 2, 4
UNTOUCHED = b"\xEE"

Word = struct.Struct("<I")


class Fault(Exception):
    """The program did what a phone would end it for, or what the simulated phone does not know."""


class ProcessEnd(Exception):
    """The program ended itself."""

    def __init__(self, code):
        super().__init__(code)
        self.code = code


class Heap:
    """Blocks with room between them. What was given back is not given out again, so that late uses are seen."""

    def __init__(self):
        self.next = HEAP
        self._live = bytearray(HEAP_SIZE)

    def allocate(self, size):
        place = self.next
        self.next += (size + BETWEEN_BLOCKS + 15) & ~15
        if self.next > HEAP_END:
            raise Fault("the simulated phone has no memory left")
        self._live[place - HEAP:place - HEAP + size] = b"\1" * size
        return place

    def give_back(self, place, size):
        self._live[place - HEAP:place - HEAP + size] = bytes(size)

    def holds(self, place, size):
        return self._live.find(0, place - HEAP, place - HEAP + size) < 0


class Machine:
    """`platform` has a method for each call that is answered; its parameters are the call's words. It returns one
    word, or nothing for 0; a truth is TRUE or FALSE."""

    def __init__(self, path, platform):
        self.platform = platform
        self.log = []
        self.cpu = Uc(UC_ARCH_ARM, UC_MODE_ARM)
        self.heap = Heap()
        self.stacks = [STACKS + STACK_SIZE * (number + 1) for number in range(STACK_COUNT)]
        self._trapped = None
        self._load(pefile.PE(path))
        self.cpu.mem_map(HEAP, HEAP_SIZE, READ | WRITE)
        # A page that nobody may touch is below each stack.
        for top in self.stacks:
            self.cpu.mem_map(top - STACK_SIZE + PAGE, STACK_SIZE - PAGE, READ | WRITE)
            self.cpu.mem_write(top - STACK_SIZE + PAGE, UNTOUCHED * (STACK_SIZE - PAGE))
        self.cpu.mem_map(TRAPS, TRAPS_SIZE, READ | EXECUTE)
        self.cpu.hook_add(UC_HOOK_CODE, self._on_trap, begin=TRAPS, end=TRAPS + TRAPS_SIZE)
        self.cpu.hook_add(UC_HOOK_MEM_UNMAPPED, self._on_bad_access)
        self.cpu.hook_add(UC_HOOK_MEM_READ | UC_HOOK_MEM_WRITE, self._on_access)
        self.cpu.reg_write(UC_ARM_REG_SP, self.stacks.pop())
        self.bad_access = None

    # --- The image ---

    def _load(self, image):
        base = image.OPTIONAL_HEADER.ImageBase
        self.entry = base + image.OPTIONAL_HEADER.AddressOfEntryPoint
        self.cpu.mem_map(base, PAGE, READ)
        self.cpu.mem_write(base, image.header)
        for section in image.sections:
            place = base + section.VirtualAddress
            size = (section.Misc_VirtualSize + PAGE - 1) // PAGE * PAGE
            rights = section.Characteristics >> 28
            self.cpu.mem_map(place, size, READ | (WRITE if rights & 8 else 0) | (EXECUTE if rights & 2 else 0))
            self.cpu.mem_write(place, section.get_data()[:section.Misc_VirtualSize])
        self.imports = []
        for library in image.DIRECTORY_ENTRY_IMPORT:
            for number, place in enumerate(library.imports):
                name = place.name.decode() if place.name else f"{library.dll.decode()[:-4]}_{place.ordinal}"
                self.cpu.mem_write(base + library.struct.FirstThunk + 4 * number, Word.pack(self.address_of(name)))

    def address_of(self, name):
        """Where the program finds a call of the platform."""
        if name not in self.imports:
            self.imports.append(name)
        return TRAPS + 4 * self.imports.index(name)

    # --- Running ---

    def _on_trap(self, cpu, address, _size, _data):
        self._trapped = address
        cpu.emu_stop()

    def _on_bad_access(self, cpu, kind, address, size, _value, _data):
        self.bad_access = f"access {kind} to {address:#x} ({size} bytes) at {cpu.reg_read(UC_ARM_REG_PC):#x}"
        return False

    def _on_access(self, cpu, kind, address, size, _value, _data):
        """What the processor of a phone, or a phone with other things in its memory, would not put up with."""
        if address % size or (HEAP <= address < HEAP_END and not self.heap.holds(address, size)):
            self.bad_access = (f"access {kind} to {address:#x} ({size} bytes), which is "
                               f"{'not aligned' if address % size else 'no block of the heap'}, "
                               f"at {cpu.reg_read(UC_ARM_REG_PC):#x}")
            cpu.emu_stop()

    def call(self, address, *words):
        """Calls a function of the program by the phone's convention. Returns its answer, r0."""
        return self.call_long(address, *words) & 0xFFFFFFFF

    def call_long(self, address, *words):
        """As `call`, for a function that answers 64 bits."""
        cpu = self.cpu
        stack, link = cpu.reg_read(UC_ARM_REG_SP), cpu.reg_read(UC_ARM_REG_LR)
        words = [word & 0xFFFFFFFF for word in words]
        below = b"".join(map(Word.pack, words[4:]))
        top = stack - len(below)
        cpu.mem_write(top, below)
        cpu.reg_write(UC_ARM_REG_SP, top)
        for number, word in enumerate(words[:4]):
            cpu.reg_write(UC_ARM_REG_R0 + number, word)
        cpu.reg_write(UC_ARM_REG_LR, RETURN)
        self._run(address)
        if cpu.reg_read(UC_ARM_REG_SP) != top:
            raise Fault("a function left the stack otherwise than it found it")
        cpu.reg_write(UC_ARM_REG_SP, stack)
        cpu.reg_write(UC_ARM_REG_LR, link)
        return cpu.reg_read(UC_ARM_REG_R0) | cpu.reg_read(UC_ARM_REG_R1) << 32

    def _run(self, address):
        while True:
            self._trapped = None
            try:
                self.cpu.emu_start(address, 0)
            except UcError as error:
                raise Fault(f"{error}: {self.bad_access or hex(self.cpu.reg_read(UC_ARM_REG_PC))}") from error
            if self.bad_access or self._trapped is None:
                raise Fault(self.bad_access or f"stopped at {self.cpu.reg_read(UC_ARM_REG_PC):#x}")
            if self._trapped == RETURN:
                return
            address = self.cpu.reg_read(UC_ARM_REG_LR)
            self._answer(self.imports[(self._trapped - TRAPS) // 4])

    def _answer(self, name):
        answer = getattr(self.platform, name, None)
        if not answer:
            raise Fault(f"the simulated phone does not know {name}")
        stack, link = self.cpu.reg_read(UC_ARM_REG_SP), self.cpu.reg_read(UC_ARM_REG_LR)
        words = [self.argument(number) for number in range(len(inspect.signature(answer).parameters))]
        self.log.append((name, words))
        result = answer(*words)
        self.cpu.reg_write(UC_ARM_REG_SP, stack)
        self.cpu.reg_write(UC_ARM_REG_LR, link)
        self.cpu.reg_write(UC_ARM_REG_R0, int(result or 0) & 0xFFFFFFFF)

    def argument(self, number):
        """A word that the program has called the platform with, valid until the program runs again."""
        if number < 4:
            return self.cpu.reg_read(UC_ARM_REG_R0 + number)
        return self.word(self.cpu.reg_read(UC_ARM_REG_SP) + 4 * (number - 4))

    def stack_used(self):
        """The most bytes of the first thread's stack that the program has used so far."""
        content = self.read(STACKS + STACK_SIZE * (STACK_COUNT - 1) + PAGE, STACK_SIZE - PAGE)
        return len(content.lstrip(UNTOUCHED))

    def on_other_stack(self, run):
        """Does what runs the program as another of its threads does it."""
        stack = self.cpu.reg_read(UC_ARM_REG_SP)
        own = self.stacks.pop()
        self.cpu.reg_write(UC_ARM_REG_SP, own)
        try:
            return run()
        finally:
            self.stacks.append(own)
            self.cpu.reg_write(UC_ARM_REG_SP, stack)

    # --- Memory ---

    def allocate(self, size):
        """Room for the phone's own purposes, or the program's."""
        return self.heap.allocate(size)

    def expect_room(self, place, size):
        """Fails when the program names a place in the heap that is not its own."""
        if HEAP <= place < HEAP_END and not self.heap.holds(place, size):
            raise Fault(f"{size} bytes at {place:#x} are no block of the heap")

    def read(self, place, size):
        return bytes(self.cpu.mem_read(place, size))

    def write(self, place, content):
        self.cpu.mem_write(place, bytes(content))

    def word(self, place):
        return Word.unpack(self.read(place, 4))[0]

    def put_word(self, place, value):
        self.write(place, Word.pack(value & 0xFFFFFFFF))

    def words(self, place, count):
        return struct.unpack(f"<{count}I", self.read(place, 4 * count))

    def signed(self, place, count):
        return struct.unpack(f"<{count}i", self.read(place, 4 * count))

    def text(self, place):
        """A text that ends with a zero; none where there is none."""
        if not place:
            return None
        units = bytearray()
        while (unit := self.read(place + len(units), 2)) != b"\0\0":
            units += unit
        return units.decode("utf-16-le", "surrogatepass")

    def put_text(self, place, text, capacity=None):
        """Writes a text with its zero, cut to a capacity in characters. Returns the number of characters before it."""
        units = text.encode("utf-16-le", "surrogatepass")
        if capacity is not None:
            units = units[:2 * (capacity - 1)]
        self.write(place, units + b"\0\0")
        return len(units) // 2

    def new_text(self, text):
        place = self.allocate(2 * len(text) + 2)
        self.put_text(place, text)
        return place
