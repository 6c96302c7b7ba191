#!/usr/bin/env python3
"""Writes tests/fuzz/texture_corpus: one small texture of every kind that is read.

    tests/fuzz/make_texture_corpus.py

Files whose names begin with "found_" are what fuzzing found; they are left alone.
"""

import pathlib
import struct

FOLDER = pathlib.Path(__file__).parent / "texture_corpus"
WIDTH, HEIGHT = 9, 5
COUNT = WIDTH * HEIGHT

# Blue, green, red and transparency of each pixel: no two rows and columns alike.
PIXELS = [(x * 28 % 256, y * 60 % 256, (x * y * 7 + 3) % 256, 255 - x * 20)
          for y in range(HEIGHT) for x in range(WIDTH)]


class Bits:
    """The bits of JPEG colours, the highest of a byte first."""

    def __init__(self):
        self.text = ""

    def add(self, number, count):
        if count:
            self.text += format(number, f"0{count}b")

    def bytes(self):
        text = self.text + "1" * (-len(self.text) % 8)
        data = bytes(int(text[at:at + 8], 2) for at in range(0, len(text), 8))
        return data.replace(b"\xff", b"\xff\x00")


def segment(mark, content):
    return bytes([0xFF, mark]) + struct.pack(">H", len(content) + 2) + content


def jpeg(components, passes=False, jfif=False):
    """Squares of 8 by 8 pixels of one colour each. The code of a category is its number in 4 bits,
    and that of the end of a square one bit."""
    columns, rows = -(-WIDTH // 8), -(-HEIGHT // 8)
    data = b"\xff\xd8"
    if jfif:
        data += segment(0xE0, b"JFIF\0\1\1\0\0\1\0\1\0\0")
    data += segment(0xDB, b"\0" + b"\1" * 64)
    data += segment(0xC2 if passes else 0xC0, struct.pack(">BHHB", 8, HEIGHT, WIDTH, components) +
                    b"".join(bytes([i, 0x11, 0]) for i in range(components)))
    data += segment(0xC4, b"\x00" + bytes([0, 0, 0, 12] + [0] * 12) + bytes(range(12)))
    if not passes:
        data += segment(0xC4, b"\x10" + bytes([1] + [0] * 15) + b"\0")
    bits, before = Bits(), [0] * components
    for _ in range(rows * columns):
        for component in range(components):
            level = (PIXELS[component * 7][component] - 128) * 8
            difference, before[component] = level - before[component], level
            size = abs(difference).bit_length()
            bits.add(size, 4)
            bits.add(difference if difference > 0 else difference + (1 << size) - 1, size)
            if not passes:
                bits.add(0, 1)
    scan = bytes([components]) + b"".join(bytes([i, 0]) for i in range(components))
    data += segment(0xDA, scan + (b"\0\0\0" if passes else b"\0\x3f\0")) + bits.bytes()
    return data + b"\xff\xd9"


def mipmaps(offset, length):
    return struct.pack("<I60xI60x", offset, length)


def blp1(compression, alpha_bits, content, offset, length):
    return b"BLP1" + struct.pack("<6I", compression, alpha_bits, WIDTH, HEIGHT, 4, 1) + mipmaps(
        156 + offset, length) + content


def blp1_jpeg(data, alpha_bits, shared):
    return blp1(0, alpha_bits, struct.pack("<I", shared) + data, 4 + shared, len(data) - shared)


def palette():
    return b"".join(bytes(PIXELS[i % COUNT][:3]) + b"\0" for i in range(256))


def indexed(alpha_bits):
    plane = bytes(i * 37 % 256 for i in range((COUNT * alpha_bits + 7) // 8))
    return bytes(range(COUNT)) + plane


def blp2(compression, alpha_bits, blocks, mipmap):
    return (b"BLP2" + struct.pack("<I4BII", 1, compression, alpha_bits, blocks, 1, WIDTH, HEIGHT) +
            mipmaps(148 + 1024, len(mipmap)) + palette() + mipmap)


def squares(size):
    """S3TC blocks of so many bytes each."""
    count = -(-WIDTH // 4) * -(-HEIGHT // 4)
    return bytes((i * 73 + 11) % 256 for i in range(count * size))


def dds(content, four_cc=b"\0\0\0\0", flags=4, bits=0, masks=(0, 0, 0, 0)):
    return (b"DDS " + struct.pack("<IIII56x", 124, 0x1007, HEIGHT, WIDTH) +
            struct.pack("<II4sI4I", 32, flags, four_cc, bits, *masks) +
            struct.pack("<I16x", 0x1000) + content)


def numbered(number, content):
    return dds(struct.pack("<IIIII", number, 3, 0, 1, 0) + content, b"DX10")


def plain(parts):
    return b"".join(bytes(pixel[:parts]) for pixel in PIXELS)


def packed(content, step):
    """Packets of one row each: the first pixel twice, then the others as they are."""
    data = b""
    for row in range(0, len(content), WIDTH * step):
        pixels = content[row:row + WIDTH * step]
        data += b"\x81" + pixels[:step] + bytes([WIDTH - 3]) + pixels[2 * step:]
    return data


def tga(kind, bits, content, descriptor=0x20, colours=b"", colour_bits=0):
    count = len(colours) * 8 // (-(-colour_bits // 8) * 8) if colours else 0
    return struct.pack("<BBBHHBHHHHBB", 4, 1 if count else 0, kind, 0, count, colour_bits, 0, 0,
                       WIDTH, HEIGHT, bits, descriptor) + b"text" + colours + content


def files():
    for bits in (0, 1, 4, 8):
        yield f"blp1_palette_{bits}", blp1(1, bits, palette() + indexed(bits), 1024,
                                           len(indexed(bits)))
    yield "blp1_jpeg", blp1_jpeg(jpeg(4), 8, 60)
    yield "blp1_jpeg_opaque", blp1_jpeg(jpeg(4, jfif=True), 0, 0)
    yield "blp1_jpeg_passes", blp1_jpeg(jpeg(4, passes=True), 8, 10)
    yield "blp1_jpeg_three_components", blp1_jpeg(jpeg(3), 0, 10)
    yield "blp1_jpeg_grey", blp1_jpeg(jpeg(1), 0, 10)
    yield "blp2_palette", blp2(1, 8, 0, indexed(8))
    yield "blp2_dxt1", blp2(2, 0, 0, squares(8))
    yield "blp2_dxt1_alpha", blp2(2, 1, 0, squares(8))
    yield "blp2_dxt3", blp2(2, 8, 1, squares(16))
    yield "blp2_dxt5", blp2(2, 8, 7, squares(16))
    for name, size in (("DXT1", 8), ("DXT3", 16), ("DXT5", 16), ("ATI1", 8), ("ATI2", 16)):
        yield f"dds_{name.lower()}", dds(squares(size), name.encode())
    colours = (0xFF0000, 0xFF00, 0xFF, 0xFF000000)
    yield "dds_24_bits", dds(plain(3), flags=0x40, bits=24, masks=colours)
    yield "dds_32_bits", dds(plain(4), flags=0x41, bits=32, masks=colours)
    for number, content in ((71, squares(8)), (77, squares(16)), (80, squares(8)),
                            (83, squares(16)), (28, plain(4)), (88, plain(4))):
        yield f"dds_number_{number}", numbered(number, content)
    for parts in (2, 3, 4):
        yield f"tga_{8 * parts}_bits", tga(2, 8 * parts, plain(parts))
        yield f"tga_{8 * parts}_bits_packed", tga(10, 8 * parts, packed(plain(parts), parts), 0x10)
    yield "tga_grey", tga(3, 8, plain(1), 0)
    yield "tga_grey_packed", tga(11, 8, packed(plain(1), 1))
    yield "tga_grey_alpha", tga(3, 16, plain(2))
    yield "tga_palette", tga(1, 8, bytes(i % 45 for i in range(COUNT)), 0x30, plain(3), 24)
    yield "tga_palette_packed", tga(9, 8, packed(bytes(range(COUNT)), 1), 0x20, plain(2), 15)


def main():
    FOLDER.mkdir(exist_ok=True)
    for old in FOLDER.iterdir():
        if not old.name.startswith("found_"):
            old.unlink()
    for name, data in files():
        (FOLDER / name).write_bytes(data)


if __name__ == "__main__":
    main()
