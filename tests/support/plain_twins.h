// The tools in their plainest form: loops within loops that do what each tool is defined to do,
// however long it takes. What the program does must be the same, to the last bit.
//
// Vertices, faces and the corners of a face are counted from 1 here; a corner's value is the
// number of its vertex less 1.
#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "model/geoset_store.h"

namespace corvane::plain {

inline VertexRecord& vertex(Geoset& mesh, int i) {
    return mesh.Vertices.at(static_cast<std::size_t>(i) - 1);
}
inline const VertexRecord& vertex(const Geoset& mesh, int i) {
    return mesh.Vertices.at(static_cast<std::size_t>(i) - 1);
}
inline FaceRecord& face(Geoset& mesh, int g) {
    return mesh.Faces.at(static_cast<std::size_t>(g) - 1);
}
inline const FaceRecord& face(const Geoset& mesh, int g) {
    return mesh.Faces.at(static_cast<std::size_t>(g) - 1);
}
inline std::int16_t& corner(FaceRecord& face, int c) {
    return face.corner.at(static_cast<std::size_t>(c) - 1);
}
inline std::int16_t corner(const FaceRecord& face, int c) {
    return face.corner.at(static_cast<std::size_t>(c) - 1);
}

inline int vertexCount(const Geoset& mesh) { return static_cast<int>(mesh.Vertices.size()); }
inline int faceCount(const Geoset& mesh) { return static_cast<int>(mesh.Faces.size()); }

inline void growVertices(Geoset& mesh, int count) {
    mesh.Vertices.resize(static_cast<std::size_t>(count));
}
inline void growFaces(Geoset& mesh, int count) {
    mesh.Faces.resize(static_cast<std::size_t>(count));
}

/// The number of selected vertices.
inline int numSelVerts(const Geoset& mesh) {
    int count = 0;
    for (int i = 1; i <= vertexCount(mesh); ++i) {
        if (vertex(mesh, i).selected) count = count + 1;
    }
    return count;
}

inline bool cornersSelected(const Geoset& mesh, const FaceRecord& face) {
    for (int c = 1; c <= 3; ++c) {
        if (!vertex(mesh, corner(face, c) + 1).selected) return false;
    }
    return true;
}

inline int countSelectedFaces(const Geoset& mesh) {
    int count = 0;
    for (int g = 1; g <= faceCount(mesh); ++g) {
        if (cornersSelected(mesh, face(mesh, g))) count = count + 1;
    }
    return count;
}

inline double selectionCentre(const Geoset& mesh, std::size_t slot) {
    int count = 0;
    double sum = 0;
    for (int i = 1; i <= vertexCount(mesh); ++i) {
        if (!vertex(mesh, i).selected || vertex(mesh, i).deleted) continue;
        count = count + 1;
        sum = sum + vertex(mesh, i).pos[slot];
    }
    if (count == 0) return 0;
    return sum / count;
}

/// copyOf: which vertex each copy was made of; entry 0 is not used.
using CopyOf = std::vector<int>;

/// The number of the copy that was made of a vertex.
inline int findCopy(const CopyOf& copyOf, int number) {
    int found = 0;
    for (int k = 1; k < static_cast<int>(copyOf.size()); ++k) {
        if (copyOf[static_cast<std::size_t>(k)] == number) found = k;
    }
    return found;
}

inline CopyOf copySelectedVertices(Geoset& mesh, int oldVertices) {
    CopyOf copyOf = {0};
    for (int i = 1; i <= oldVertices; ++i) {
        if (!vertex(mesh, i).selected) continue;
        copyOf.push_back(i);
        vertex(mesh, oldVertices + static_cast<int>(copyOf.size()) - 1) = vertex(mesh, i);
    }
    return copyOf;
}

inline void selectAbove(Geoset& mesh, int number) {
    for (int i = 1; i <= vertexCount(mesh); ++i) vertex(mesh, i).selected = i > number;
}

inline void cloneSelection(Geoset& mesh) {
    const int s = numSelVerts(mesh);
    const int f = countSelectedFaces(mesh);
    const int oldVertices = vertexCount(mesh);
    const int oldFaces = faceCount(mesh);
    growVertices(mesh, oldVertices + s);
    growFaces(mesh, oldFaces + f);
    const CopyOf copyOf = copySelectedVertices(mesh, oldVertices);
    int j = 0;
    for (int g = 1; g <= oldFaces; ++g) {
        if (!cornersSelected(mesh, face(mesh, g))) continue;
        j = j + 1;
        for (int c = 1; c <= 3; ++c) {
            const int k = findCopy(copyOf, corner(face(mesh, g), c) + 1);
            corner(face(mesh, oldFaces + j), c) = static_cast<std::int16_t>(oldVertices + k - 1);
        }
    }
    selectAbove(mesh, oldVertices);
}

/// Whether two vertices, given by corner values, lie at the same place.
inline bool samePosition(const Geoset& mesh, int i, int j) {
    const Triple& a = vertex(mesh, i + 1).pos;
    const Triple& b = vertex(mesh, j + 1).pos;
    return a[0] == b[0] && a[1] == b[1] && a[2] == b[2];
}

struct ExtrudeEdge {
    std::int16_t start = 0;  ///< on the base
    std::int16_t end = 0;
    std::int16_t capStart = 0;
    std::int16_t capEnd = 0;
    bool interior = false;
};

inline bool sameEdge(const Geoset& mesh, const ExtrudeEdge& e, const ExtrudeEdge& f) {
    return (samePosition(mesh, e.start, f.start) && samePosition(mesh, e.end, f.end)) ||
           (samePosition(mesh, e.start, f.end) && samePosition(mesh, e.end, f.start));
}

inline void addSideQuad(Geoset& mesh, const ExtrudeEdge& e) {
    const int last = faceCount(mesh);
    growFaces(mesh, last + 2);
    face(mesh, last + 1).corner = {e.start, e.end, e.capStart};
    face(mesh, last + 2).corner = {e.capEnd, e.capStart, e.end};
}

/// The edges of the selected faces while these are re-pointed to the copies.
inline std::vector<ExtrudeEdge> makeCap(Geoset& mesh, int oldVertices, const CopyOf& copyOf) {
    std::vector<ExtrudeEdge> edges;
    for (int g = 1; g <= faceCount(mesh); ++g) {
        FaceRecord& cap = face(mesh, g);
        if (!cornersSelected(mesh, cap)) continue;
        const FaceRecord base = cap;
        for (int c = 1; c <= 3; ++c) {
            const int k = findCopy(copyOf, corner(base, c) + 1);
            corner(cap, c) = static_cast<std::int16_t>(oldVertices + k - 1);
        }
        for (int c = 1; c <= 3; ++c) {
            const int next = c == 3 ? 1 : c + 1;
            edges.push_back({.start = corner(base, c),
                             .end = corner(base, next),
                             .capStart = corner(cap, c),
                             .capEnd = corner(cap, next)});
        }
    }
    return edges;
}

inline void extrudeSelection(Geoset& mesh, const Triple& delta, const std::array<bool, 3>& active) {
    const int oldVertices = vertexCount(mesh);
    growVertices(mesh, oldVertices + numSelVerts(mesh));
    const CopyOf copyOf = copySelectedVertices(mesh, oldVertices);
    std::vector<ExtrudeEdge> edges = makeCap(mesh, oldVertices, copyOf);
    for (ExtrudeEdge& e : edges) {
        for (ExtrudeEdge& f : edges) {
            if (&e == &f || !sameEdge(mesh, e, f)) continue;
            e.interior = true;
            f.interior = true;
        }
    }
    selectAbove(mesh, oldVertices);
    for (const ExtrudeEdge& e : edges) {
        if (!e.interior) addSideQuad(mesh, e);
    }
    for (int i = 1; i <= vertexCount(mesh); ++i) {
        if (!vertex(mesh, i).selected) continue;
        for (std::size_t slot = 0; slot < 3; ++slot) {
            double& coordinate = vertex(mesh, i).pos[slot];
            if (active[slot]) coordinate = coordinate + delta[slot];
        }
    }
}

inline void weldSelection(Geoset& mesh) {
    if (numSelVerts(mesh) == 0) return;
    int survivor = 1;
    while (!vertex(mesh, survivor).selected) survivor = survivor + 1;
    for (std::size_t slot = 0; slot < 3; ++slot) {
        vertex(mesh, survivor).pos[slot] = selectionCentre(mesh, slot);
    }
    for (int g = 1; g <= faceCount(mesh); ++g) {
        if (face(mesh, g).deleted) continue;
        for (int c = 1; c <= 3; ++c) {
            if (vertex(mesh, corner(face(mesh, g), c) + 1).selected) {
                corner(face(mesh, g), c) = static_cast<std::int16_t>(survivor - 1);
            }
        }
    }
    for (int i = 1; i <= vertexCount(mesh); ++i) {
        if (i == survivor || !vertex(mesh, i).selected || vertex(mesh, i).deleted) continue;
        vertex(mesh, i).selected = false;
        vertex(mesh, i).deleted = true;
    }
}

inline void expandSelection(Geoset& mesh) {
    bool changed = true;
    while (changed) {
        changed = false;
        for (int i = 1; i <= vertexCount(mesh); ++i) {
            if (!vertex(mesh, i).selected) continue;
            for (int f = 1; f <= faceCount(mesh); ++f) {
                const int a = corner(face(mesh, f), 1) + 1;
                const int b = corner(face(mesh, f), 2) + 1;
                const int c = corner(face(mesh, f), 3) + 1;
                if (i != a && i != b && i != c) continue;
                if (cornersSelected(mesh, face(mesh, f))) continue;
                vertex(mesh, a).selected = true;
                vertex(mesh, b).selected = true;
                vertex(mesh, c).selected = true;
                changed = true;
            }
        }
    }
}

inline Triple normalise(double x, double y, double z) {
    const double length = std::sqrt(x * x + y * y + z * z);
    if (length == 0) return {1, 0, 0};
    return {x / length, y / length, z / length};
}

/// From vertex q to vertex p.
inline Triple unitDirection(const Geoset& mesh, int p, int q) {
    const Triple& from = vertex(mesh, q).pos;
    const Triple& to = vertex(mesh, p).pos;
    return normalise(to[0] - from[0], to[1] - from[1], to[2] - from[2]);
}

/// Which corner of face g lies at the place of vertex v, the last one found; -1 where none does.
inline int cornerAt(const Geoset& mesh, int v, int g) {
    int found = -1;
    for (int j = 1; j <= vertexCount(mesh); ++j) {
        if (!samePosition(mesh, j - 1, v - 1)) continue;
        for (int c = 1; c <= 3; ++c) {
            if (corner(face(mesh, g), c) == j - 1) found = c;
        }
    }
    return found;
}

inline Triple vertexNormal(const Geoset& mesh, int v) {
    // The two other corners for each corner, in the order in which they are added.
    constexpr std::array<std::array<int, 2>, 3> kOthers = {{{2, 3}, {1, 3}, {2, 1}}};
    double x = 0;
    double y = 0;
    double z = 0;
    for (int g = 1; g <= faceCount(mesh); ++g) {
        const int k = cornerAt(mesh, v, g);
        if (k == -1) continue;
        const std::array<int, 2>& others = kOthers.at(static_cast<std::size_t>(k) - 1);
        const int c = corner(face(mesh, g), k) + 1;
        const Triple a = unitDirection(mesh, c, corner(face(mesh, g), others[0]) + 1);
        const Triple b = unitDirection(mesh, c, corner(face(mesh, g), others[1]) + 1);
        x = x + a[0] + b[0];
        y = y + a[1] + b[1];
        z = z + a[2] + b[2];
    }
    return normalise(x, y, z);
}

inline void recalculateNormals(Geoset& mesh) {
    for (int v = 1; v <= vertexCount(mesh); ++v) {
        if (vertex(mesh, v).selected) vertex(mesh, v).normal = vertexNormal(mesh, v);
    }
}

/// The index that a save gives to a vertex.
inline int newVertexIndex(const Geoset& mesh, int v) {
    int kept = 0;
    for (int i = 1; i <= v; ++i) {
        if (!vertex(mesh, i).deleted) kept = kept + 1;
    }
    return kept - 1;
}

inline int countKeptFaces(const Geoset& mesh) {
    int kept = 0;
    for (int g = 1; g <= faceCount(mesh); ++g) {
        bool all = true;
        for (int c = 1; c <= 3; ++c) {
            if (vertex(mesh, corner(face(mesh, g), c) + 1).deleted) all = false;
        }
        if (all) kept = kept + 1;
    }
    return kept;
}

}  // namespace corvane::plain
