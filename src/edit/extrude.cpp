#include "edit/extrude.h"

#include <algorithm>
#include <unordered_map>

#include "edit/clone.h"
#include "edit/positions.h"
#include "edit/selection.h"
#include "edit/transforms.h"

namespace corvane {

namespace {

// An edge of a selected face: its corners on the base, where the face was.
struct ExtrudeEdge {
    std::int16_t start;
    std::int16_t end;
};

// The edges of the selected faces that no other edge of a selected face lies on, in face order.
std::vector<ExtrudeEdge> openEdges(const GeosetStore& store) {
    const std::vector<std::uint32_t> ids = positionIds(store.Vertices);
    std::vector<ExtrudeEdge> edges;
    for (const FaceRecord& face : store.Faces) {
        if (!hasSelectedCorners(store, face)) continue;
        const auto [a, b, c] = face.corner;
        edges.insert(edges.end(), {{a, b}, {b, c}, {c, a}});
    }
    // Whichever way round, the same two positions are the same edge.
    const auto keyOf = [&](const ExtrudeEdge& edge) {
        const auto [low, high] = std::minmax(ids[static_cast<std::size_t>(edge.start)],
                                             ids[static_cast<std::size_t>(edge.end)]);
        return (std::uint64_t{high} << 32U) | low;
    };
    std::unordered_map<std::uint64_t, int> uses;
    uses.reserve(edges.size());
    for (const ExtrudeEdge& edge : edges) ++uses[keyOf(edge)];
    std::erase_if(edges, [&](const ExtrudeEdge& edge) { return uses[keyOf(edge)] > 1; });
    return edges;
}

// The two triangles of the side wall between an edge on the base and the same edge on the cap.
void addSideQuad(GeosetStore& store, const ExtrudeEdge& base, const ExtrudeEdge& cap) {
    store.Faces.push_back({.corner = {base.start, base.end, cap.start}});
    store.Faces.push_back({.corner = {cap.end, cap.start, base.end}});
}

}  // namespace

void extrudeSelection(Editor& editor, const Triple& delta) {
    GeosetStore& store = editor.store;
    const std::vector<ExtrudeEdge> edges = openEdges(store);
    if (!fitsLimits(editor, "The extruded geoset", static_cast<std::size_t>(numSelVerts(store)),
                    2 * edges.size())) {
        return;
    }
    pushUndo(editor, {.keepFaces = true, .keepVertices = true}, {}, "Extrude");

    const std::size_t oldVertices = store.Vertices.size();
    const std::vector<std::int16_t> copyOf = copySelectedVertices(store);
    const auto onCap = [&](std::int16_t corner) {
        return copyOf[static_cast<std::size_t>(corner)];
    };
    for (FaceRecord& face : store.Faces) {
        if (!hasSelectedCorners(store, face)) continue;
        for (std::int16_t& corner : face.corner) corner = onCap(corner);
    }
    selectFrom(store, oldVertices);
    for (const ExtrudeEdge& edge : edges) {
        addSideQuad(store, edge, {onCap(edge.start), onCap(edge.end)});
    }
    moveSelection(editor, delta, false);  // redraws
}

}  // namespace corvane
