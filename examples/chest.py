"""A treasure chest with a texture of its own."""

from mdl import Mesh, add, bitmap, bone, cross, material, model, on_circle, rotation, scaled, unit

TEXTURE = "chest.blp"
SIZE = 128  # of the texture, pixels a side
BODY, LID = 0, 1  # vertex groups, and the bones of the same numbers

# Where things are in the texture: left, top, right, bottom, as shares of it.
LID_PLANKS = (0, 0, 1, 0.5)
BODY_PLANKS = (0, 0.5, 0.75, 1)
IRON = (0.75, 0.5, 1, 0.75)
LOCK = (0.75, 0.75, 1, 1)

# Model units. The chest faces the front, X.
DEPTH, WIDTH = 22, 36  # half of each
FLOOR, RIM, GAP = 4, 30, 0.5
BULGE = 20  # how far the lid rises above its edge
SECTIONS = 8  # of the lid's curve
BANDS = (-24, 24)  # where the iron bands are, along Y
BAND_WIDTH, BAND_HEIGHT = 6, 1.2


def panel(mesh, start, along, up, columns, rows, tile, group):
    """A flat sheet of columns by rows cells, seen with `along` to the right and `up` upward."""
    u0, v0, u1, v1 = tile
    normal = unit(cross(along, up))
    first = len(mesh.positions)
    for row in range(rows + 1):
        for column in range(columns + 1):
            across, high = column / columns, row / rows
            place = add(start, add(scaled(along, across), scaled(up, high)))
            mesh.vertex(place, (u0 + (u1 - u0) * across, v1 - (v1 - v0) * high), group, normal)
    for row in range(rows):
        for column in range(columns):
            a = first + row * (columns + 1) + column
            b, c, d = a + 1, a + columns + 2, a + columns + 1
            mesh.triangles += [(a, b, c), (a, c, d)]


def curve(section, out=0.0):
    """A point of the lid's curve, from the front edge over the top: X and Z."""
    x, z = on_circle(1, 180 * section / SECTIONS)
    return (DEPTH + out) * x, RIM + GAP + (BULGE + out) * z


def body(mesh):
    height = (0, 0, RIM - FLOOR)
    front, back = (DEPTH, -WIDTH, FLOOR), (-DEPTH, WIDTH, FLOOR)
    panel(mesh, front, (0, 2 * WIDTH, 0), height, 6, 3, BODY_PLANKS, BODY)
    panel(mesh, back, (0, -2 * WIDTH, 0), height, 6, 3, BODY_PLANKS, BODY)
    panel(mesh, (DEPTH, WIDTH, FLOOR), (-2 * DEPTH, 0, 0), height, 3, 3, BODY_PLANKS, BODY)
    panel(mesh, (-DEPTH, -WIDTH, FLOOR), (2 * DEPTH, 0, 0), height, 3, 3, BODY_PLANKS, BODY)
    along, across = (0, 2 * WIDTH, 0), (-2 * DEPTH, 0, 0)
    panel(mesh, (DEPTH, -WIDTH, RIM), along, across, 6, 3, BODY_PLANKS, BODY)
    panel(mesh, (DEPTH, WIDTH, FLOOR), scaled(along, -1), across, 6, 3, BODY_PLANKS, BODY)
    for x in (DEPTH - 4, 4 - DEPTH):
        for y in (WIDTH - 4, 4 - WIDTH):
            mesh.box((x, y, 2), (9, 9, 4), group=BODY, tile=IRON)


def lid(mesh):
    u0, v0, u1, v1 = LID_PLANKS
    mesh.grid(
        SECTIONS + 1,
        7,
        lambda row, column: (curve(row)[0], WIDTH * (column / 3 - 1), curve(row)[1]),
        lambda row, column: (u0 + (u1 - u0) * column / 6, v1 - (v1 - v0) * row / SECTIONS),
        lambda row, column: LID,
    )
    panel(mesh, (DEPTH, WIDTH, RIM + GAP), (0, -2 * WIDTH, 0), (-2 * DEPTH, 0, 0), 6, 1,
          BODY_PLANKS, LID)
    for side, order in ((1, range(SECTIONS, -1, -1)), (-1, range(SECTIONS + 1))):
        points = [curve(section) for section in order]
        mesh.facet(
            [(x, side * WIDTH, z) for x, z in points],
            [(0.375 + 0.36 * x / DEPTH, 0.78 - 0.24 * (z - RIM) / BULGE) for x, z in points],
            LID,
        )
    mesh.box((DEPTH + 1.5, 0, RIM + 2), (3, 10, 12), group=LID, tile=LOCK)


def band(mesh, path, middle, group):
    """An iron band across the chest: a strip with rims, along a path of (X, Z) and outward."""
    half = BAND_WIDTH / 2
    profile = [(-half, 0), (-half, BAND_HEIGHT), (half, BAND_HEIGHT), (half, 0)]
    u0, v0, u1, v1 = IRON
    last = len(path) - 1

    def point(row, column):
        across, out = profile[column]
        x, z, out_x, out_z = path[row]
        return x + out * out_x, middle + across, z + out * out_z

    mesh.grid(
        len(path), 4, point,
        lambda row, column: (u0 + (u1 - u0) * column / 3, v1 - (v1 - v0) * row / last),
        lambda row, column: group,
    )


def bands(mesh):
    arch = []
    for section in range(SECTIONS + 1):
        out_x, out_z = on_circle(1, 180 * section / SECTIONS)
        arch.append((*curve(section), out_x, out_z))
    for middle in BANDS:
        band(mesh, arch, middle, LID)
        band(mesh, [(DEPTH, FLOOR, 1, 0), (DEPTH, RIM, 1, 0)], middle, BODY)
        band(mesh, [(-DEPTH, RIM, -1, 0), (-DEPTH, FLOOR, -1, 0)], middle, BODY)


def chest():
    mesh = Mesh()
    body(mesh)
    lid(mesh)
    bands(mesh)
    opening = [(1200, 0), (1800, -75), (2200, -70)]
    return model(
        "Chest",
        "A treasure chest with a texture of its own: one geoset, two vertex groups, body and lid.",
        [("Stand", 0, 1000), ("Death", 1200, 2200, "NonLooping,")],
        [bitmap(TEXTURE)],
        [material(0)],
        [(mesh, [[BODY], [LID]], 0)],
        nodes=[
            bone("Body", 0, None, 0, "None"),
            bone("Lid", 1, 0, 0, "None", rotation((0, 1, 0), opening)),
        ],
        pivots=[(0, 0, 0), (-DEPTH, 0, RIM)],
    )


# --- The texture -----------------------------------------------------------------------------


def grain(*place):
    """A number from 0 to 255 that only the place decides."""
    value = 2166136261
    for part in place:
        value = ((value ^ (part & 0xFFFF)) * 16777619) & 0xFFFFFFFF
    return (value ^ (value >> 15)) * 2654435769 >> 24 & 0xFF


def shade(colour, steps):
    """A colour made lighter or darker by some steps of a sixteenth."""
    return tuple(max(0, min(255, part + part * steps // 16)) for part in colour)


def wood(x, y, plank, joint):
    """Horizontal planks, `plank` pixels high, each with a joint somewhere."""
    row = y // plank
    if y % plank == 0:
        return shade((74, 46, 22), -4)
    if (x + 29 * row) % joint == 0 and row % 2 == 0:
        return shade((74, 46, 22), -2)
    if (x + 29 * row) % joint in (3, joint - 3) and y % plank in (plank // 3, 2 * plank // 3):
        return (58, 58, 64)  # a nail
    steps = grain(row) % 5 - 2
    steps += grain(x // 9, y, row) % 3 - 1
    steps += (1 if y % plank == 1 else 0) - (2 if y % plank == plank - 1 else 0)
    return shade((142, 92, 48), steps)


def iron(x, y):
    edge = min(x, 31 - x)
    if (x - 16) ** 2 + (y % 16 - 8) ** 2 <= 9:
        return shade((150, 154, 164), 2 if y % 16 < 8 else -3)  # a rivet
    return shade((92, 96, 106), {0: -6, 1: -3, 2: 3}.get(edge, 0) + grain(x, y) % 3 - 1)


def lock(x, y):
    if (x - 16) ** 2 + (y - 13) ** 2 <= 12 or (abs(x - 16) <= 1 and 13 <= y <= 23):
        return (26, 20, 12)  # the keyhole
    edge = min(x, y, 31 - x, 31 - y)
    return shade((206, 164, 62), {0: -7, 1: 3, 2: -3}.get(edge, (grain(x, y) % 3) - 1))


def texture():
    """The picture that the chest's texture coordinates belong to."""
    half, side = SIZE // 2, SIZE * 3 // 4

    def pixel(x, y):
        if y < half:
            return wood(x, y, 8, 64)
        if x < side:
            return wood(x, y - half, 16, 48)
        if y < side:
            return iron(x - side, y - half)
        return lock(x - side, y - side)

    return [[pixel(x, y) for x in range(SIZE)] for y in range(SIZE)]
