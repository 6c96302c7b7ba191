"""Pictures with up to 256 colours, as bitmaps and as the game's own textures.

A picture is a list of rows from the top, each a list of (red, green, blue).
"""

import struct

BLP_LEVELS = 16  # sizes that the header has room for


def palette_of(picture):
    """The colours of a picture in the order in which they come, and where each of them is."""
    place = {}
    for row in picture:
        for colour in row:
            place.setdefault(colour, len(place))
    assert len(place) <= 256, len(place)
    return list(place), place


def bmp(picture):
    """A bitmap with 8 bits a pixel."""
    colours, place = palette_of(picture)
    width, height = len(picture[0]), len(picture)
    assert width % 4 == 0  # rows are padded to four bytes
    pixels = b"".join(bytes(place[colour] for colour in row) for row in reversed(picture))
    palette = b"".join(struct.pack("<BBBx", blue, green, red) for red, green, blue in colours)
    start = 14 + 40 + len(palette)
    header = struct.pack("<2sIHHI", b"BM", start + len(pixels), 0, 0, start)
    info = struct.pack("<IiiHHIIiiII", 40, width, height, 1, 8, 0, len(pixels), 2835, 2835,
                       len(colours), 0)
    return header + info + palette + pixels


def halved(picture):
    """Half the size, each pixel the mean of four (of two where only one side can be halved)."""
    rows = list(zip(picture[::2], picture[1::2])) if len(picture) > 1 else [(picture[0],)]
    wide = len(picture[0]) > 1
    result = []
    for pair in rows:
        row = []
        for x in range(0, len(pair[0]), 2):
            four = [line[x + side] for line in pair for side in ((0, 1) if wide else (0,))]
            row.append(tuple(sum(parts) // len(four) for parts in zip(*four)))
        result.append(row)
    return result


def blp(picture):
    """A texture of the game's first kind: a palette, no transparency, every smaller size too."""
    colours, _ = palette_of(picture)

    def nearest(colour):
        return min(range(len(colours)),
                   key=lambda i: sum((a - b) ** 2 for a, b in zip(colours[i], colour)))

    known = {}
    levels = [picture]
    while len(levels[-1]) > 1 or len(levels[-1][0]) > 1:
        levels.append(halved(levels[-1]))
    data, offsets, sizes = b"", [], []
    start = 4 + 6 * 4 + 2 * 4 * BLP_LEVELS + 4 * 256
    for level in levels:
        pixels = bytes(known.setdefault(colour, nearest(colour)) if colour not in known
                       else known[colour] for row in level for colour in row)
        offsets.append(start + len(data))
        sizes.append(len(pixels))
        data += pixels
    rest = [0] * (BLP_LEVELS - len(levels))
    # A palette, no bits of transparency, the size, a palette without transparency, smaller sizes.
    header = struct.pack("<4s6I", b"BLP1", 1, 0, len(picture[0]), len(picture), 5, 1)
    header += struct.pack(f"<{2 * BLP_LEVELS}I", *offsets, *rest, *sizes, *rest)
    palette = b"".join(struct.pack("<BBBx", blue, green, red) for red, green, blue in colours)
    return header + palette.ljust(4 * 256, b"\0") + data
