"""Meshes, and the text of a model made from them. See generate.py for the models themselves.

The text is laid out as the editor itself writes it (numbers in their shortest form, normals and
texture coordinates with 6 decimals, all triangles on one line): a model that is opened and saved
again without an edit is the same file, byte for byte.
"""

import math

VIEW_REACH = 75  # model units from the origin that a view shows at its first zoom
MATRICES_PER_GROUP = 7  # the most that the format holds


# --- Vectors ---------------------------------------------------------------------------------


def add(a, b):
    return tuple(x + y for x, y in zip(a, b))


def sub(a, b):
    return tuple(x - y for x, y in zip(a, b))


def scaled(a, factor):
    return tuple(x * factor for x in a)


def dot(a, b):
    return sum(x * y for x, y in zip(a, b))


def cross(a, b):
    return (
        a[1] * b[2] - a[2] * b[1],
        a[2] * b[0] - a[0] * b[2],
        a[0] * b[1] - a[1] * b[0],
    )


def unit(a):
    length = math.sqrt(dot(a, a))
    return scaled(a, 1 / length)


def on_circle(radius, degrees):
    """A point of a circle around the origin: (cosine, sine) times the radius."""
    angle = math.radians(degrees)
    return radius * math.cos(angle), radius * math.sin(angle)


# --- Meshes ----------------------------------------------------------------------------------


class Mesh:
    """One geoset: vertices with a normal, a texture coordinate and a vertex group; triangles.

    Triangles run counter-clockwise as seen from outside.
    """

    def __init__(self):
        self.positions = []
        self.normals = []
        self.coordinates = []
        self.groups = []
        self.triangles = []

    def vertex(self, position, coordinate, group=0, normal=None):
        # Rounded at once, so that normals belong to the positions that the file holds.
        self.positions.append(tuple(round(value, 4) for value in position))
        self.coordinates.append(tuple(coordinate))
        self.groups.append(group)
        self.normals.append(normal)
        return len(self.positions) - 1

    def facet(self, corners, coordinates, group=0):
        """A flat polygon with vertices of its own, so that its edges look sharp."""
        first = len(self.positions)
        rounded = [tuple(round(value, 4) for value in corner) for corner in corners]
        # Twice the polygon's area as a vector, which holds for corners not quite in one plane.
        area = (0.0, 0.0, 0.0)
        for i, corner in enumerate(rounded):
            area = add(area, cross(corner, rounded[(i + 1) % len(rounded)]))
        normal = unit(area)
        for corner, coordinate in zip(rounded, coordinates):
            self.vertex(corner, coordinate, group, normal)
        for i in range(1, len(corners) - 1):
            self.triangles.append((first, first + i, first + i + 1))

    def grid(self, rows, columns, point, coordinate, group=lambda row, column: 0):
        """A smooth sheet of rows by columns vertices. point(row, column) gives their positions.

        Seen from outside, rows go up and columns go to the right. Where a row is a single point
        repeated, triangles without an area are left out.
        """
        first = len(self.positions)
        for row in range(rows):
            for column in range(columns):
                self.vertex(point(row, column), coordinate(row, column), group(row, column))
        for row in range(rows - 1):
            for column in range(columns - 1):
                a = first + row * columns + column
                b, c, d = a + 1, a + columns + 1, a + columns
                for triangle in ((a, b, c), (a, c, d)):
                    if len({self.positions[corner] for corner in triangle}) == 3:
                        self.triangles.append(triangle)

    def box(self, centre, size, turn=0, group=0, tile=(0, 0, 1, 1)):
        """A box, turned about the Z axis through its centre by `turn` degrees."""
        corners = []
        for x, y, z in (
            (-1, -1, -1), (1, -1, -1), (1, 1, -1), (-1, 1, -1),
            (-1, -1, 1), (1, -1, 1), (1, 1, 1), (-1, 1, 1),
        ):
            cosine, sine = on_circle(1, turn)
            x, y, z = x * size[0] / 2, y * size[1] / 2, z * size[2] / 2
            corners.append(add(centre, (x * cosine - y * sine, x * sine + y * cosine, z)))
        u0, v0, u1, v1 = tile
        square = [(u0, v1), (u1, v1), (u1, v0), (u0, v0)]
        for side in (
            (0, 1, 5, 4), (1, 2, 6, 5), (2, 3, 7, 6), (3, 0, 4, 7), (4, 5, 6, 7), (3, 2, 1, 0),
        ):
            self.facet([corners[corner] for corner in side], square, group)

    def drop_unused(self):
        """Drops the vertices that no triangle uses, such as the last of a row that is a point."""
        used = sorted({corner for triangle in self.triangles for corner in triangle})
        place = {old: new for new, old in enumerate(used)}
        for name in ("positions", "normals", "coordinates", "groups"):
            values = getattr(self, name)
            setattr(self, name, [values[old] for old in used])
        self.triangles = [tuple(place[corner] for corner in t) for t in self.triangles]

    def smooth(self):
        """Gives the vertices that have no normal yet the mean direction of the faces around them.

        Vertices at one place share it, so a seam in the texture does not show.
        """
        sums = {}
        for a, b, c in self.triangles:
            if self.normals[a] is not None:
                continue
            pa, pb, pc = self.positions[a], self.positions[b], self.positions[c]
            area = cross(sub(pb, pa), sub(pc, pa))
            for position in (pa, pb, pc):
                sums[position] = add(sums.get(position, (0.0, 0.0, 0.0)), area)
        for i, position in enumerate(self.positions):
            if self.normals[i] is None:
                self.normals[i] = unit(sums[position])

    def extents(self):
        lowest = tuple(min(p[axis] for p in self.positions) for axis in range(3))
        highest = tuple(max(p[axis] for p in self.positions) for axis in range(3))
        return lowest, highest


def lathe(mesh, profile, segments, tile, group=0):
    """Turns a profile of (radius, z) pairs, from bottom to top, about the Z axis."""
    u0, v0, u1, v1 = tile
    last = len(profile) - 1

    def point(row, column):
        radius, z = profile[row]
        x, y = on_circle(radius, 360 * (column % segments) / segments)
        return x, y, z

    def coordinate(row, column):
        return u0 + (u1 - u0) * column / segments, v1 - (v1 - v0) * row / last

    mesh.grid(last + 1, segments + 1, point, coordinate, lambda row, column: group)


def prism(mesh, sides, rings, tile, turn=0):
    """A closed, sharp-edged body of (radius, z) rings from bottom to top, about the Z axis."""
    u0, v0, u1, v1 = tile
    last = len(rings) - 1

    def corner(ring, side):
        radius, z = rings[ring]
        return (*on_circle(radius, turn + 360 * (side % sides) / sides), z)

    for ring in range(last):
        low, high = v1 - (v1 - v0) * ring / last, v1 - (v1 - v0) * (ring + 1) / last
        for side in range(sides):
            left, right = u0 + (u1 - u0) * side / sides, u0 + (u1 - u0) * (side + 1) / sides
            mesh.facet(
                [corner(ring, side), corner(ring, side + 1),
                 corner(ring + 1, side + 1), corner(ring + 1, side)],
                [(left, low), (right, low), (right, high), (left, high)],
            )
    for ring, order in ((0, range(sides - 1, -1, -1)), (last, range(sides))):
        disc = []
        for side in order:
            x, y = on_circle(0.5, 360 * side / sides)
            disc.append((u0 + (u1 - u0) * (0.5 + x), v0 + (v1 - v0) * (0.5 - y)))
        mesh.facet([corner(ring, side) for side in order], disc)


def tube(mesh, start, end, radius, sides, tile, group):
    """A thin round bar between two points, open at its ends, which are hidden."""
    along = unit(sub(end, start))
    across = unit(cross(along, (1, 0, 0) if abs(along[0]) < 0.9 else (0, 1, 0)))
    other = cross(along, across)
    u0, v0, u1, v1 = tile

    def point(row, column):
        x, y = on_circle(radius, 360 * (column % sides) / sides)
        return add((start, end)[row], add(scaled(across, x), scaled(other, y)))

    def coordinate(row, column):
        return u0 + (u1 - u0) * column / sides, v1 - (v1 - v0) * row

    mesh.grid(2, sides + 1, point, coordinate, lambda row, column: group)


# --- Model text ------------------------------------------------------------------------------


def number(value, decimals):
    # Smaller values would be written with an exponent; nothing here is that fine.
    return "0" if abs(value) < 1e-4 else format(round(value, decimals), ".15g")


def triple(values, decimals=4):
    return "{ " + ", ".join(number(value, decimals) for value in values) + " }"


def extent_lines(indent, extents):
    lowest, highest = extents
    radius = math.dist(lowest, highest) / 2
    return [
        f"{indent}MinimumExtent {triple(lowest)},",
        f"{indent}MaximumExtent {triple(highest)},",
        f"{indent}BoundsRadius {number(radius, 4)},",
    ]


def common_extents(all_extents):
    lows, highs = zip(*all_extents)
    return tuple(map(min, zip(*lows))), tuple(map(max, zip(*highs)))


def block(header, lines):
    return [header + " {", *("\t" + line for line in lines), "}"]


def counted(header, blocks):
    """A block that holds blocks, with their number in its header."""
    return block(f"{header} {len(blocks)}", [line for one in blocks for line in one])


def sequence(name, first, last, extents, *flags):
    lines = [f"Interval {{ {first}, {last} }},", *flags, *extent_lines("", extents)]
    return block(f'Anim "{name}"', lines)


def bitmap(image, replaceable=None):
    lines = [f'Image "{image}",']
    if replaceable is not None:
        lines.append(f"ReplaceableId {replaceable},")
    return block("Bitmap", lines)


def material(texture, *flags):
    layer = ["FilterMode None,", *flags, f"static TextureID {texture},"]
    return block("Material", block("Layer", layer))


def geoset(mesh, groups, material_id, sequences):
    """`groups` are the matrix (bone) numbers of each vertex group."""
    mesh.drop_unused()
    mesh.smooth()
    corners = ", ".join(str(corner) for triangle in mesh.triangles for corner in triangle)
    lines = [
        f"Vertices {len(mesh.positions)} {{",
        *(f"\t{triple(position)}," for position in mesh.positions),
        "}",
        f"Normals {len(mesh.normals)} {{",
        *(f"\t{triple(normal, 6)}," for normal in mesh.normals),
        "}",
        f"TVertices {len(mesh.coordinates)} {{",
        *(f"\t{triple(coordinate, 6)}," for coordinate in mesh.coordinates),
        "}",
        "VertexGroup {",
        *(f"\t{group}," for group in mesh.groups),
        "}",
        f"Faces 1 {3 * len(mesh.triangles)} {{",
        "\tTriangles {",
        f"\t\t{{ {corners} }},",
        "\t}",
        "}",
        f"Groups {len(groups)} {sum(map(len, groups))} {{",
        *(f"\tMatrices {{ {', '.join(map(str, group))} }}," for group in groups),
        "}",
        *extent_lines("", mesh.extents()),
    ]
    for _ in range(sequences):
        lines += block("Anim", extent_lines("", mesh.extents()))
    lines += [f"MaterialID {material_id},", "SelectionGroup 0,"]
    return block("Geoset", lines)


def keys(kind, interpolation, frames, shape):
    """An animation track: frames are (time in milliseconds, value)."""
    lines = [interpolation + ",", *(f"{time}: {shape(value)}," for time, value in frames)]
    return block(f"{kind} {len(frames)}", lines)


def geoset_animation(geoset_id, *lines):
    return block("GeosetAnim", [*lines, f"GeosetId {geoset_id},"])


def node(kind, name, object_id, parent, *lines):
    parents = [] if parent is None else [f"Parent {parent},"]
    return block(f'{kind} "{name}"', [f"ObjectId {object_id},", *parents, *lines])


def bone(name, object_id, parent, geoset_id, animation_id, *tracks):
    lines = [f"GeosetId {geoset_id},", f"GeosetAnimId {animation_id},"]
    return node("Bone", name, object_id, parent, *lines, *(line for t in tracks for line in t))


def turn_about(axis, degrees):
    """A rotation as the file holds it: the axis times a sine, then a cosine."""
    cosine, sine = on_circle(1, degrees / 2)
    return (*scaled(axis, sine), cosine)


def rotation(axis, frames):
    values = [(time, turn_about(axis, degrees)) for time, degrees in frames]
    return keys("Rotation", "Linear", values, lambda value: triple(value, 6))


def closed_volumes(mesh):
    """The volumes of the mesh's closed parts: positive where their triangles face outward."""
    part_of = {position: position for position in mesh.positions}

    def part(position):
        while part_of[position] != position:
            position = part_of[position]
        return position

    edges = set()
    for triangle in mesh.triangles:
        a, b, c = (mesh.positions[corner] for corner in triangle)
        assert not edges & {(a, b), (b, c), (c, a)}, ("two neighbours face opposite ways", a, b, c)
        edges |= {(a, b), (b, c), (c, a)}
        part_of[part(b)] = part_of[part(c)] = part(a)
    volumes, is_open = {}, {part(a) for a, b in edges if (b, a) not in edges}
    for triangle in mesh.triangles:
        a, b, c = (mesh.positions[corner] for corner in triangle)
        volumes[part(a)] = volumes.get(part(a), 0) + dot(a, cross(b, c)) / 6
    return [volume for place, volume in volumes.items() if place not in is_open]


def check(name, meshes):
    """Stops where a model is not what its description says."""
    for mesh, groups in meshes:
        count = len(mesh.positions)
        assert count == len(mesh.normals) == len(mesh.coordinates) == len(mesh.groups)
        assert 0 < count <= 32767 and 0 < len(mesh.triangles) <= 32767, name
        for position in mesh.positions:
            assert max(map(abs, position)) <= VIEW_REACH, (name, position)
        for coordinate in mesh.coordinates:
            assert all(0 <= value <= 1 for value in coordinate), (name, coordinate)
        for normal in mesh.normals:
            assert abs(dot(normal, normal) - 1) < 1e-9, (name, normal)
        assert set(mesh.groups) <= set(range(len(groups))), name
        assert all(0 < len(group) <= MATRICES_PER_GROUP for group in groups), name
        for triangle in mesh.triangles:
            a, b, c = (mesh.positions[corner] for corner in triangle)
            area = cross(sub(b, a), sub(c, a))
            assert dot(area, area) > 1e-9, (name, "a triangle without an area", a, b, c)
            for corner in triangle:
                assert dot(area, mesh.normals[corner]) > 0, (name, "a normal and its face differ")
        for volume in closed_volumes(mesh):
            assert volume > -1e-9, (name, "a part is inside out", volume)


def model(name, comment, sequences, textures, materials, meshes, *, animations=(), nodes, pivots):
    """The lines of a model. `meshes` are (mesh, matrix groups, material number)."""
    extents = common_extents([mesh.extents() for mesh, _, _ in meshes])
    assert len(nodes) == len(pivots)
    for index, lines in enumerate(nodes):
        assert lines[1] == f"\tObjectId {index},", lines
    kinds = [lines[0].split()[0] for lines in nodes]
    counts = [("NumGeosets", len(meshes)), ("NumGeosetAnims", len(animations)),
              ("NumHelpers", kinds.count("Helper")), ("NumBones", kinds.count("Bone"))]
    header = [f"{key} {count}," for key, count in counts if count > 0]
    header += ["BlendTime 150,", *extent_lines("", extents)]
    lines = ["// " + comment, *block("Version", ["FormatVersion 800,"])]
    lines += block(f'Model "{name}"', header)
    lines += counted("Sequences", [sequence(*one[:3], extents, *one[3:]) for one in sequences])
    lines += counted("Textures", textures)
    lines += counted("Materials", materials)
    for mesh, groups, material_id in meshes:
        lines += geoset(mesh, groups, material_id, len(sequences))
    for part in (*animations, *nodes):
        lines += part
    lines += counted("PivotPoints", [[triple(pivot) + ","] for pivot in pivots])
    check(name, [(mesh, groups) for mesh, groups, _ in meshes])
    return lines
