#!/usr/bin/env python3
"""Makes icons that the phone can draw of the desktop's: of 16 and 32 pixels, with a palette of 256 colours.

    phone_icons.py FOLDER ICON...      writes each icon under its name into FOLDER

The desktop's have 32 bits a pixel, of which the upper eight say how opaque it is: a pixel is drawn or not here.
"""
import os
import struct
import sys

SIZES = (16, 32)
COLOURS = 256


def read_pictures(data):
    """The pictures of an icon that are bitmaps of 32 bits a pixel: {width: rows of (red, green, blue, opacity)}."""
    count, = struct.unpack_from('<H', data, 4)
    found = {}
    for number in range(count):
        *_, offset = struct.unpack_from('<BBBBHHII', data, 6 + 16 * number)
        head, width, height, _, bits = struct.unpack_from('<IiiHH', data, offset)
        if head != 40 or bits != 32:
            continue  # a PNG
        pixels = struct.iter_unpack('<BBBB', data[offset + head:offset + head + width * height // 2 * 4])
        pixels = [(red, green, blue, opacity) for blue, green, red, opacity in pixels]
        found[width] = [pixels[start:start + width] for start in range(0, len(pixels), width)]
    return found


def coarser(colour, bits):
    """The colour with its last bits made up of its first ones."""
    return tuple((part >> bits << bits) | (part >> (8 - bits)) for part in colour)


def to_palette(rows):
    """The picture's colours, few enough, and its rows as numbers of them; None is a pixel that is not drawn."""
    for bits in range(8):
        drawn = [[coarser(pixel[:3], bits) if pixel[3] >= 128 else None for pixel in row] for row in rows]
        colours = sorted({colour for row in drawn for colour in row if colour} | {(0, 0, 0)})
        if len(colours) <= COLOURS:
            return colours, [[colours.index(colour) if colour else None for colour in row] for row in drawn]
    raise ValueError('too many colours')


def bitmap(rows):
    """The picture as an icon stores it: header, palette, pixels, and the mask of what is not drawn."""
    colours, numbers = to_palette(rows)
    size = len(rows)
    pixels = b''.join(bytes(number or 0 for number in row) for row in numbers)
    mask = b''
    for row in numbers:
        bits = int(''.join('1' if number is None else '0' for number in row), 2)
        mask += (bits << (-size % 32)).to_bytes((size + 31) // 32 * 4, 'big')
    palette = b''.join(struct.pack('<BBBB', blue, green, red, 0) for red, green, blue in colours)
    head = struct.pack('<IiiHHIIiiII', 40, size, 2 * size, 1, 8, 0, len(pixels) + len(mask), 0, 0, 0, 0)
    return head + palette.ljust(4 * COLOURS, b'\0') + pixels + mask


def icon(pictures):
    """The icon file of pictures by their width."""
    blocks = [(size, bitmap(pictures[size])) for size in SIZES]
    data = struct.pack('<HHH', 0, 1, len(blocks))
    offset = 6 + 16 * len(blocks)
    for size, block in blocks:
        data += struct.pack('<BBBBHHII', size, size, 0, 0, 1, 8, len(block), offset)
        offset += len(block)
    return data + b''.join(block for _, block in blocks)


def main(folder, *icons):
    os.makedirs(folder, exist_ok=True)
    for path in icons:
        with open(path, 'rb') as file:
            pictures = read_pictures(file.read())
        with open(os.path.join(folder, os.path.basename(path)), 'wb') as file:
            file.write(icon(pictures))


if __name__ == '__main__':
    main(*sys.argv[1:])
