#!/usr/bin/env python3
"""Writes the phone's executable of a linked program and its compiled resources.

    write_image.py PROGRAM.elf RESOURCES.res PROGRAM.exe

The program is laid out by image.ld already: its sections are copied, and the headers that the phone's loader
reads are put before them.
"""
import struct
import sys

import resources
from elf import Elf

BASE = 0x10000
PAGE = 0x1000
FILE_UNIT = 0x200
HEADERS_SIZE = 0x400

CODE, READ_ONLY, READ_WRITE = 0x60000020, 0x40000040, 0xC0000040
ARM = 0x01C0
WINDOWS_CE = 9
# No relocations, executable, no line numbers, no local symbols, 32 bits.
CHARACTERISTICS = 0x010F
STACK, HEAP = (0x20000, PAGE), (0x100000, PAGE)  # reserved, and there from the start


def aligned(size, unit):
    return (size + unit - 1) // unit * unit


def read_sections(elf, compiled):
    """The executable's sections: [(name, rights, place in the image, size there, bytes in the file)]."""
    found = []
    for name, rights in (('.text', CODE), ('.rdata', READ_ONLY), ('.data', READ_WRITE)):
        start = elf.section(name).address
        content = elf.content(name)
        size = len(content)
        if name == '.data':
            bss = elf.section('.bss')
            size = bss.address + bss.size - start
        found.append((name, rights, start - BASE, size, content))
    place = elf.addresses()['__image_end'] - BASE
    content = resources.section(resources.read_compiled(compiled), place)
    found.append(('.rsrc', READ_ONLY, place, len(content), content))
    return found


def directories(elf, sections):
    """The sixteen places that the loader looks for: imports, resources and the addresses of the imports are here."""
    names = elf.addresses()
    table = [(0, 0)] * 16
    for number, name in ((1, 'imports'), (12, 'addresses')):
        start = names[f'__{name}_start']
        table[number] = start - BASE, names[f'__{name}_end'] - start
    table[2] = sections[-1][2], sections[-1][3]
    return b''.join(struct.pack('<II', *place) for place in table)


def headers(elf, sections):
    sizes = {rights: sum(aligned(len(content), FILE_UNIT) for _, of, _, _, content in sections if of == rights)
             for rights in (CODE, READ_ONLY, READ_WRITE)}
    end = sections[-1][2] + aligned(sections[-1][3], PAGE)
    places = directories(elf, sections)
    optional = struct.pack('<HBBIIIIII', 0x10B, 1, 0, sizes[CODE], sizes[READ_ONLY] + sizes[READ_WRITE], 0,
                           elf.entry - BASE, sections[0][2], sections[1][2])
    optional += struct.pack('<III', BASE, PAGE, FILE_UNIT)
    optional += struct.pack('<HHHHHHI', 4, 0, 0, 0, 5, 1, 0)  # versions: system, program, subsystem
    optional += struct.pack('<IIIHH', end, HEADERS_SIZE, 0, WINDOWS_CE, 0)
    optional += struct.pack('<IIIIII', *STACK, *HEAP, 0, 16) + places

    head = b'MZ'.ljust(60, b'\0') + struct.pack('<I', 0x80)
    head = head.ljust(0x80, b'\0') + b'PE\0\0'
    head += struct.pack('<HHIIIHH', ARM, len(sections), 0, 0, 0, len(optional), CHARACTERISTICS) + optional
    offset = HEADERS_SIZE
    for name, rights, place, size, content in sections:
        raw = aligned(len(content), FILE_UNIT)
        head += struct.pack('<8sIIIIIIHHI', name.encode(), size, place, raw, offset, 0, 0, 0, 0, rights)
        offset += raw
    return head.ljust(HEADERS_SIZE, b'\0')


def main(program, compiled, executable):
    elf = Elf(program)
    with open(compiled, 'rb') as file:
        sections = read_sections(elf, file.read())
    with open(executable, 'wb') as file:
        file.write(headers(elf, sections))
        for *_, content in sections:
            file.write(content.ljust(aligned(len(content), FILE_UNIT), b'\0'))


if __name__ == '__main__':
    main(*sys.argv[1:])
