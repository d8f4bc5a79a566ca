"""Reads the sections and symbols of a 32-bit little-endian ELF file."""
import struct
from collections import namedtuple

Section = namedtuple('Section', 'name type address offset size link entry_size')
Symbol = namedtuple('Symbol', 'name address size')

NOTHING_IN_FILE = 8
SYMBOLS = 2


class Elf:
    def __init__(self, path):
        with open(path, 'rb') as file:
            self.data = file.read()
        if self.data[:6] != b'\x7fELF\x01\x01':
            raise ValueError(f'{path} is no 32-bit ELF file')
        self.entry, _, table = struct.unpack_from('<III', self.data, 24)
        entry_size, count, names = struct.unpack_from('<HHH', self.data, 46)
        heads = [struct.unpack_from('<10I', self.data, table + entry_size * number) for number in range(count)]
        self.sections = [
            Section(self._text(heads[names][4] + head[0]), head[1], head[3], head[4], head[5], head[6], head[9])
            for head in heads
        ]

    def _text(self, offset):
        return self.data[offset:self.data.index(b'\0', offset)].decode()

    def section(self, name):
        return next(section for section in self.sections if section.name == name)

    def content(self, name):
        """The bytes of a section as they stand in the file."""
        section = self.section(name)
        return b'' if section.type == NOTHING_IN_FILE else self.data[section.offset:section.offset + section.size]

    def symbols(self):
        """What has a name and a place: functions and data."""
        table = next(section for section in self.sections if section.type == SYMBOLS)
        texts = self.sections[table.link].offset
        for place in range(table.offset, table.offset + table.size, table.entry_size):
            name, address, size, _, _, section = struct.unpack_from('<IIIBBH', self.data, place)
            if name and section:
                yield Symbol(self._text(texts + name), address, size)

    def addresses(self):
        """The places of the names."""
        return {symbol.name: symbol.address for symbol in self.symbols()}
