#!/usr/bin/env python3
"""Makes the examples in this folder: the models and the pictures.

    python3 examples/generate.py [FOLDER]

Needs nothing but Python 3.8 or later. Every run writes the same bytes, so a change to a shape
shows as a change to its model.

Positions are in model units and in the file's axes: X to the front, Y to the side, Z up. The
editor's front view shows Y across and Z up. At its first zoom a view shows 157 by 151 model units
around the origin, so everything here stays within 75 units of it.
"""

import math
import os
import struct
import sys

sys.dont_write_bytecode = True  # leave no cache folder in the examples

from chest import chest, texture
from mdl import (
    Mesh, add, bitmap, bone, cross, geoset_animation, keys, lathe, material, model, node,
    number, on_circle, prism, rotation, scaled, sub, triple, tube, unit,
)
from pixels import blp, bmp

WHITE = bitmap("Textures\\white.blp")  # comes with the game
TEAM_COLOUR = bitmap("", 1)


def crystal_body(mesh, sides, rings, place, tile, group):
    """A crystal that stands on a tip and ends in one.

    `rings` starts with the heights of the two tips. The rings between them follow from below, each
    with its radius, its height, and the share of a side by which it is turned. `place` maps a point
    of the crystal into the model.
    """
    u0, v0, u1, v1 = tile
    (bottom, top), rings = rings[0], rings[1:]
    # Every facet is a little larger or smaller than its neighbour, as in a grown crystal.
    uneven = (1.0, 0.9, 1.06, 0.96, 1.1, 0.92, 1.03, 0.98)

    def corner(ring, side):
        radius, height, turn = rings[ring]
        radius *= uneven[(side + 3 * ring) % sides % len(uneven)]
        return (*on_circle(radius, 360 * (side % sides + turn) / sides), height)

    def coordinate(height, side):
        u = u0 + (u1 - u0) * side / (sides + 1)  # the turned rings reach over the last side
        return u, v1 - (v1 - v0) * (height - bottom) / (top - bottom)

    def triangle(*corners):
        points, coordinates = [], []
        for ring, side in corners:
            if ring in (-1, len(rings)):
                point = (0.0, 0.0, float(bottom if ring < 0 else top))
                at = side + 0.5
            else:
                point = corner(ring, side)
                at = side + rings[ring][2]
            points.append(place(point))
            coordinates.append(coordinate(point[2], at))
        mesh.facet(points, coordinates, group)

    for side in range(sides):
        triangle((-1, side), (0, side + 1), (0, side))
        for ring in range(len(rings) - 1):
            if rings[ring][2] < rings[ring + 1][2]:
                triangle((ring, side), (ring, side + 1), (ring + 1, side))
                triangle((ring, side + 1), (ring + 1, side + 1), (ring + 1, side))
            else:
                triangle((ring, side), (ring + 1, side + 1), (ring + 1, side))
                triangle((ring, side), (ring, side + 1), (ring + 1, side + 1))
        triangle((len(rings), side), (len(rings) - 1, side), (len(rings) - 1, side + 1))


def crystal():
    mesh = Mesh()
    crystal_body(
        mesh,
        8,
        [(-62, 64), (19, -30, 0), (28, 8, 0.5), (24, 26, 0), (11, 46, 0.5)],
        lambda point: point,
        (0, 0, 1, 0.75),
        0,
    )
    shards = 6
    for shard in range(shards):
        middle = 360 * (shard + 0.5) / shards
        lean = unit((*on_circle(0.45, middle), 1))  # the shard's long axis, leaning outward
        across = unit(cross((0, 0, 1), lean))
        ahead = cross(across, lean)
        height = 9 if shard % 2 == 0 else -14
        centre = (*on_circle(46, middle), height)

        def place(point, centre=centre, axes=(ahead, across, lean)):
            for value, axis in zip(point, axes):
                centre = add(centre, scaled(axis, value))
            return centre

        crystal_body(
            mesh,
            5,
            [(-13, 17), (5, -3, 0), (4, 7, 0.5)],
            place,
            (shard / shards, 0.75, (shard + 1) / shards, 1),
            1,
        )
    bob = [(0, (0, 0, 0)), (1500, (0, 0, 3)), (3000, (0, 0, 0))]
    return model(
        "Crystal",
        "A floating crystal with six shards around it: one geoset, two bones.",
        [("Stand", 0, 3000), ("Death", 3200, 4200, "NonLooping,")],
        [WHITE],
        [material(0)],
        [(mesh, [[0], [1]], 0)],
        nodes=[
            bone("Crystal", 0, None, 0, "None", keys("Translation", "Linear", bob, triple)),
            bone(
                "Shards", 1, None, 0, "None",
                rotation((0, 0, 1), [(0, 0), (1000, 120), (2000, 240), (3000, 360)]),
            ),
        ],
        pivots=[(0, 0, 0), (0, 0, 0)],
    )


def watchtower():
    base = Mesh()
    prism(base, 8, [(32, 0), (30, 5)], (0, 0, 0.5, 1), turn=22.5)
    prism(base, 8, [(25, 5), (23, 10)], (0.5, 0, 1, 1), turn=22.5)
    base.box((30, 0, 2.5), (14, 14, 5))  # the step in front of the door

    walls = Mesh()
    lathe(walls, [(19, 10), (16, 17), (14, 25), (13, 33), (13.5, 40)], 24, (0, 0, 1, 0.75))
    walls.box((17, 0, 15.5), (6, 10, 11), tile=(0, 0.75, 0.25, 1))  # the door
    for window, turn in enumerate((60, 180, 300)):
        left = 0.25 * (window + 1)
        centre = (*on_circle(13.4, turn), 29)
        walls.box(centre, (2, 3, 7), turn=turn, tile=(left, 0.75, left + 0.25, 1))

    platform = Mesh()
    prism(platform, 12, [(13.5, 40), (20, 44), (20, 46)], (0, 0, 1, 0.5))
    merlons = 12
    for merlon in range(merlons):
        turn = 360 * (merlon + 0.5) / merlons
        tile = (merlon / merlons, 0.5, (merlon + 1) / merlons, 1)
        platform.box((*on_circle(18, turn), 48.25), (2.5, 5.5, 4.5), turn=turn, tile=tile)

    roof = Mesh()
    for post in range(4):
        turn = 45 + 90 * post
        tile = (0.25 * post, 0.75, 0.25 * (post + 1), 1)
        roof.box((*on_circle(12, turn), 49.5), (1.5, 1.5, 7), turn=turn, tile=tile)
    prism(roof, 12, [(19, 52), (17.5, 53.5), (9, 57), (1.2, 64)], (0, 0, 1, 0.75))

    flag = Mesh()
    prism(flag, 6, [(0.6, 63), (0.5, 73)], (0, 0, 0.25, 1))
    rows, columns, length = 4, 9, 18

    def cloth(row, column):
        across = column / (columns - 1)
        wave = 2.5 * across * math.sin(2 * math.pi * across)
        return wave, 0.5 + length * across, 66.5 + 6 * row / (rows - 1) - 1.5 * across

    flag.grid(
        rows,
        columns,
        cloth,
        lambda row, column: (0.25 + 0.75 * column / (columns - 1), 1 - row / (rows - 1)),
        # Held by the pole, then by both bones, then by the tip's bone alone.
        lambda row, column: 0 if column < 3 else 1 if column < 6 else 2,
    )

    one, two, three, four = 0, 1000, 4000, 6000
    fade = [(0, 0), (600, 1), (4000, 1), (5200, 0)]
    alpha = keys("Alpha", "Linear", fade, lambda value: number(value, 4))
    raise_flag = keys("Alpha", "DontInterp", [(0, 0), (900, 1), (4100, 0)], lambda v: number(v, 4))
    wave = [(1000, -8), (2000, 8), (3000, -8)]
    return model(
        "Watchtower",
        "A watchtower: five geosets (base, walls, platform, roof, flag), three animated.",
        [
            ("Birth", one, two - 1, "NonLooping,"),
            ("Stand", two, three - 1000),
            ("Death", three, four, "NonLooping,"),
        ],
        [WHITE, TEAM_COLOUR],
        [material(0), material(1), material(1, "TwoSided,")],
        [
            (base, [[0]], 0),
            (walls, [[1]], 0),
            (platform, [[1]], 0),
            (roof, [[2]], 1),
            (flag, [[3], [3, 4], [4]], 2),
        ],
        animations=[
            geoset_animation(1, "static Alpha 1,", "static Color { 0.75, 0.8, 0.85 },"),
            geoset_animation(3, *alpha),
            geoset_animation(4, *raise_flag, "static Color { 1, 1, 1 },"),
        ],
        nodes=[
            bone("Base", 0, None, 0, "None"),
            bone("Tower", 1, 0, "Multiple", 0),
            bone("Roof", 2, 1, 3, 1),
            bone("Flag", 3, 2, 4, 2, rotation((0, 0, 1), wave)),
            bone("Flag Tip", 4, 3, 4, 2, rotation((0, 0, 1), [(t, -2 * a) for t, a in wave])),
            node("Helper", "Door", 5, 0),
            node("Helper", "Lookout", 6, 1),
        ],
        pivots=[
            (0, 0, 0), (0, 0, 10), (0, 0, 46), (0, 0, 68), (0, 10, 68), (20, 0, 10), (0, 0, 46),
        ],
    )


def airship():
    envelope = Mesh()
    rings, segments, lobes = 41, 40, 10
    length, thickness, height = 66, 25, 16  # half the length, the radius, the axis above Z = 0

    def skin(row, column):
        # Rows run from the tail (Y = -66) to the nose; the tail is the thinner end.
        along = math.pi * row / (rings - 1)
        radius = thickness * math.sin(along) * (1 - 0.12 * math.cos(along))
        column %= segments
        around = 360 * column / segments
        radius *= 1 + 0.025 * math.cos(math.radians(lobes * around))  # bulges between the ropes
        x, z = on_circle(radius, -around)
        return x, -length * math.cos(along), height + z

    envelope.grid(
        rings,
        segments + 1,
        skin,
        lambda row, column: (column / segments, 1 - row / (rings - 1)),
    )

    gondola = Mesh()
    sections, ribs, deck, keel = 13, 9, -27, 13  # the deck's height and the depth below it

    def share(row):
        return math.cos(math.pi * row / (sections - 1))  # 1 at the stern, -1 at the bow

    def hull(row, column):
        width = 10 * math.sqrt(max(0.0, 1 - share(row) ** 2)) ** 0.7
        around = 180 * column / (ribs - 1)
        x, z = on_circle(1, -around)
        return width * x, -30 * share(row), deck + keel * (width / 10) * z

    def rib(row, column):
        return 0.5 * column / (ribs - 1), 1 - row / (sections - 1)

    gondola.grid(sections, ribs, hull, rib)
    for row in range(sections - 1):  # the deck
        edge = [hull(row, 0), hull(row + 1, 0), hull(row + 1, ribs - 1), hull(row, ribs - 1)]
        corners = [p for i, p in enumerate(edge) if math.dist(p, edge[i - 1]) > 1e-6]
        gondola.facet(
            corners,
            [(0.75 + p[0] / 40, 0.5 - p[1] / 60) for p in corners],
        )
    gondola.box((0, -14, deck + 4.5), (9, 16, 9), tile=(0.5, 0.5, 1, 1))  # the cabin
    for side in (-1, 1):
        for y in (-18, 0, 18):
            start, end = (7 * side, y * 0.9, deck), (13 * side, y, height - 18)
            tube(gondola, start, end, 0.7, 6, (0, 0, 0.5, 1), 0)

    tail = Mesh()
    for fin in range(4):
        turn = 90 * fin
        cosine, sine = on_circle(1, turn)

        def place(y, reach, side, cosine=cosine, sine=sine):
            x, z = reach * cosine - side * sine, reach * sine + side * cosine
            return x, y, height + z

        # A wedge: sharp along its front edge, a unit and a half thick at its back.
        front = [place(-36, 15, 0), place(-58, 29, 0)]
        left = [place(-66, 29, -0.75), place(-60, 4, -0.75)]
        right = [place(-66, 29, 0.75), place(-60, 4, 0.75)]
        u0, u1 = fin / 4, (fin + 1) / 4
        square = [(u0, 0), (u1, 0), (u1, 0.5), (u0, 0.5)]
        tail.facet([front[1], front[0], right[1], right[0]], square)
        tail.facet([front[0], front[1], left[0], left[1]], square)
        tail.facet([right[1], left[1], left[0], right[0]], square)
        tail.facet([front[1], right[0], left[0]], square[:3])
        tail.facet([front[0], left[1], right[1]], square[:3])
    propellers = [(-18, -34, -30), (18, -34, -30)]
    for index, (x, y, z) in enumerate(propellers):
        u0 = 0.5 * index
        tube(tail, (x / 2, y + 8, z + 2), (x, y, z), 0.8, 6, (u0, 0.5, u0 + 0.25, 1), 0)
        for blade in range(3):
            cosine, sine = on_circle(1, 90 + 120 * blade)
            root, tip = (x, y - 1, z), (x + 10 * cosine, y - 1, z + 10 * sine)
            flank = (-1.6 * sine, 0.8, 1.6 * cosine)
            tile = [(u0 + 0.25, 1), (u0 + 0.5, 1), (u0 + 0.5, 0.5)]
            low, high = add(tip, flank), sub(tip, flank)
            tail.facet([root, low, high], tile, 1 + index)
            tail.facet([root, high, low], tile, 1 + index)  # seen from behind

    spin = [(0, 0), (300, 120), (600, 240), (900, 360)]
    sway = [(0, (0, 0, 0)), (450, (0, 0, 1.5)), (900, (0, 0, 0))]
    return model(
        "Airship",
        "An airship with line ends as Windows writes them: a round envelope with many vertices, "
        "a gondola, a tail.",
        [("Stand", 0, 900), ("Walk", 1000, 1900), ("Death", 2000, 3000, "NonLooping,")],
        [WHITE, TEAM_COLOUR],
        [material(1), material(0)],
        [
            (envelope, [[0]], 0),
            (gondola, [[1]], 1),
            (tail, [[0], [2], [3]], 1),
        ],
        animations=[
            geoset_animation(1, "static Alpha 1,", "static Color { 0.5, 0.35, 0.2 },"),
            geoset_animation(2, "static Alpha 1,"),
        ],
        nodes=[
            bone("Envelope", 0, None, 0, "None", keys("Translation", "Linear", sway, triple)),
            bone("Gondola", 1, 0, 1, 0),
            bone("Propeller Right", 2, 1, 2, 1, rotation((0, 1, 0), spin)),
            bone("Propeller Left", 3, 1, 2, 1, rotation((0, -1, 0), spin)),
            node("Helper", "Bow", 4, 1),
        ],
        pivots=[(0, 0, height), (0, 0, deck), *propellers, (0, 30, deck)],
    )


def checker():
    """A picture for the texture editor's background: 8 by 8 squares, 128 by 128 pixels."""
    size, square = 128, 16
    palette = [(60, 66, 82), (196, 202, 214), (178, 58, 58), (60, 120, 190)]  # red, green, blue
    rows = b""
    for y in range(size - 1, -1, -1):  # a bitmap starts with its lowest row
        colours = []
        for x in range(size):
            colour = (x // square + y // square) % 2
            if y < 2:
                colour = 2  # the edge where V is 0
            elif x < 2:
                colour = 3  # the edge where U is 0
            colours.append(colour)
        rows += bytes(16 * a + b for a, b in zip(colours[::2], colours[1::2]))
    colours = b"".join(struct.pack("<BBBx", blue, green, red) for red, green, blue in palette)
    start = 14 + 40 + len(colours)
    header = struct.pack("<2sIHHI", b"BM", start + len(rows), 0, 0, start)
    info = struct.pack("<IiiHHIIiiII", 40, size, size, 1, 4, 0, len(rows), 2835, 2835, 4, 4)
    return header + info + colours + rows


def main():
    folder = sys.argv[1] if len(sys.argv) > 1 else os.path.dirname(os.path.abspath(__file__))
    models = [("crystal.mdl", crystal(), "\n"), ("watchtower.mdl", watchtower(), "\n"),
              ("airship.mdl", airship(), "\r\n"), ("chest.mdl", chest(), "\n")]
    files = [(name, "".join(line + end for line in lines).encode()) for name, lines, end in models]
    picture = texture()
    files += [("checker.bmp", checker()), ("chest.bmp", bmp(picture)), ("chest.blp", blp(picture))]
    for name, data in files:
        path = os.path.join(folder, name)
        with open(path, "wb") as file:
            file.write(data)
        print(f"{path}: {len(data)} bytes")


if __name__ == "__main__":
    main()
