"""Makes the resource section of an executable of the compiled resources that windres writes with -O res.

Pictures that occur more than once, as the icons that serve for two sizes do, are stored once.
"""
import struct


def number_at(data, place):
    """A type or name, which all are numbers here, and the place behind it."""
    mark, number = struct.unpack_from('<HH', data, place)
    if mark != 0xFFFF:
        raise ValueError('a resource has a name instead of a number')
    return number, place + 4


def read_compiled(data):
    """The resources: {type: {name: {language: bytes}}}."""
    found = {}
    place = 0
    while place < len(data):
        size, head_size = struct.unpack_from('<II', data, place)
        kind, behind = number_at(data, place + 8)
        name, behind = number_at(data, behind)
        language, = struct.unpack_from('<H', data, behind + 6)
        content = data[place + head_size:place + head_size + size]
        if kind:  # the first entry of a file is an empty mark
            found.setdefault(kind, {}).setdefault(name, {})[language] = content
        place += (head_size + size + 3) & ~3
    return found


def tables(tree):
    """The directories of the tree, the root first and each level after the one above: (path, keys)."""
    yield (), sorted(tree)
    for kind in sorted(tree):
        yield (kind,), sorted(tree[kind])
    for kind in sorted(tree):
        for name in sorted(tree[kind]):
            yield (kind, name), sorted(tree[kind][name])


def section(tree, address):
    """The section's bytes, for a place `address` bytes into the image."""
    offsets = {}
    place = 0
    for path, keys in tables(tree):
        offsets[path] = place
        place += 16 + 8 * len(keys)
    leaves = [(kind, name, language) for kind in sorted(tree) for name in sorted(tree[kind])
              for language in sorted(tree[kind][name])]
    for path in leaves:
        offsets[path] = place
        place += 16

    contents = bytearray()
    stored = {}
    entries = b''
    for kind, name, language in leaves:
        content = bytes(tree[kind][name][language])
        if content not in stored:
            stored[content] = len(contents)
            contents += content + b'\0' * (-len(content) % 4)
        entries += struct.pack('<IIII', address + place + stored[content], len(content), 0, 0)

    directories = b''
    for path, keys in tables(tree):
        directories += struct.pack('<IIHHHH', 0, 0, 0, 0, 0, len(keys))
        for key in keys:
            below = path + (key,)
            directories += struct.pack('<II', key, offsets[below] | (0x80000000 if len(below) < 3 else 0))
    return directories + entries + contents
