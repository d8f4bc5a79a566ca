#!/usr/bin/env python3
"""Writes the import tables and call stubs of the phone's executable as assembly.

    write_imports.py IMPORTS.txt > imports.s

IMPORTS.txt names a library in brackets, then what is imported from it, a name a line; "Name @83" is imported by
its number. Each becomes a function of that name, which jumps to where the loader says: by bx, for the phone's
own libraries may be Thumb code.
"""
import sys

IMAGE_BASE = 0x10000


def read_imports(path):
    """The libraries of the list in its order: [(library, [(name, ordinal or None)])]."""
    libraries = []
    with open(path, encoding='ascii') as lines:
        for line in lines:
            line = line.split('#')[0].strip()
            if line.startswith('['):
                libraries.append((line.strip('[]'), []))
            elif line:
                name, _, ordinal = line.partition(' @')
                libraries[-1][1].append((name, int(ordinal) if ordinal else None))
    return libraries


def entry(name, ordinal):
    """What stands in both tables until the loader has been there."""
    return str(0x80000000 | ordinal) if ordinal else f'name_{name} - {IMAGE_BASE}'


def assembly(libraries):
    yield '.syntax unified\n.arm'
    for number, (library, names) in enumerate(libraries):
        yield '.section .imports.directory, "a"'
        yield f'.long lookup_{number} - {IMAGE_BASE}, 0, 0, library_{number} - {IMAGE_BASE}, addresses_{number} - {IMAGE_BASE}'
        yield f'.section .imports.names, "a"\nlibrary_{number}: .asciz "{library}"'
        for table in ('lookup', 'addresses'):
            yield f'.section .imports.{table}, "{"aw" if table == "addresses" else "a"}"\n{table}_{number}:'
            for name, ordinal in names:
                yield f'{table}_{name}: .long {entry(name, ordinal)}'
            yield '.long 0'
        for name, ordinal in names:
            if not ordinal:
                yield f'.section .imports.names, "a"\n.balign 2\nname_{name}: .short 0\n.asciz "{name}"'
            yield f'.section .text.{name}, "ax"\n.balign 4\n.global {name}\n.type {name}, %function'
            yield f'{name}: ldr ip, 1f\nldr ip, [ip]\nbx ip\n1: .long addresses_{name}'
    yield '.section .imports.directory, "a"\n.long 0, 0, 0, 0, 0'


if __name__ == '__main__':
    print('\n'.join(assembly(read_imports(sys.argv[1]))))
