"""Reads the icons among an executable's resources."""

import struct
from collections import namedtuple

ICON, ICON_GROUP = 3, 14

# `pixels` from the lower left on: (red, green, blue), or None where nothing is drawn.
Picture = namedtuple("Picture", "size bits pixels")


def bit_rows(data, size):
    """The bits of a mask, without what fills its rows up."""
    row = (size + 31) // 32 * 4
    for start in range(0, row * size, row):
        bits = int.from_bytes(data[start:start + row], "big")
        yield from (bool(bits >> (8 * row - 1 - column) & 1) for column in range(size))


def picture(data):
    """One picture of 8 or 32 bits a pixel."""
    head, size, _, _, bits = struct.unpack_from("<IiiHH", data)
    place = head
    if bits == 8:
        palette = list(struct.iter_unpack("<BBBB", data[place:place + 1024]))
        place += 1024
        colours = [palette[number] for number in data[place:place + size * size]]
    else:
        colours = list(struct.iter_unpack("<BBBB", data[place:place + 4 * size * size]))
    place += size * size * bits // 8
    masked = bit_rows(data[place:], size)
    return Picture(size, bits, [None if hidden else (red, green, blue)
                                for hidden, (blue, green, red, _) in zip(masked, colours)])


def pictures(found):
    """The bitmaps of all icons: [(path of the group, picture)]. A PNG is left out."""
    icons = {name: content for (kind, name, _), content in found.items() if kind == ICON}
    for path, content in sorted(found.items()):
        if path[0] != ICON_GROUP:
            continue
        for number in range(struct.unpack_from("<H", content, 4)[0]):
            name, = struct.unpack_from("<H", content, 6 + 14 * number + 12)
            if not icons[name].startswith(b"\x89PNG"):
                yield path, picture(icons[name])
