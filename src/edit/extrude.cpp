#include "edit/extrude.h"

#include <algorithm>
#include <unordered_map>

#include "edit/clone.h"
#include "edit/positions.h"
#include "edit/selection.h"

namespace corvane {

namespace {

// The two triangles of the side wall between an edge on the base and the same edge on the cap.
void addSideQuad(Geoset& geoset, const FaceEdge& base, const FaceEdge& cap) {
    geoset.Faces.push_back({.corner = {base.start, base.end, cap.start}});
    geoset.Faces.push_back({.corner = {cap.end, cap.start, base.end}});
}

}  // namespace

std::vector<FaceEdge> openEdges(const Geoset& geoset) {
    const std::vector<std::uint32_t> ids = positionIds(geoset.Vertices);
    std::vector<FaceEdge> edges;
    for (const FaceRecord& face : geoset.Faces) {
        if (!hasSelectedCorners(geoset, face)) continue;
        const auto [a, b, c] = face.corner;
        edges.insert(edges.end(), {{a, b}, {b, c}, {c, a}});
    }
    // Whichever way round, the same two positions are the same edge.
    const auto keyOf = [&](const FaceEdge& edge) {
        const auto [low, high] = std::minmax(ids[static_cast<std::size_t>(edge.start)],
                                             ids[static_cast<std::size_t>(edge.end)]);
        return (std::uint64_t{high} << 32U) | low;
    };
    std::unordered_map<std::uint64_t, int> uses;
    uses.reserve(edges.size());
    for (const FaceEdge& edge : edges) ++uses[keyOf(edge)];
    std::erase_if(edges, [&](const FaceEdge& edge) { return uses[keyOf(edge)] > 1; });
    return edges;
}

Growth extrudeGrowth(const Geoset& geoset, const std::vector<FaceEdge>& open) {
    return {.vertices = static_cast<std::size_t>(countSelectedVertices(geoset)),
            .faces = 2 * open.size()};
}

void extrudeSelected(Geoset& geoset, const std::vector<FaceEdge>& open) {
    const std::size_t oldVertices = geoset.Vertices.size();
    const std::vector<std::int16_t> copyOf = copySelectedVertices(geoset);
    const auto onCap = [&](std::int16_t corner) {
        return copyOf[static_cast<std::size_t>(corner)];
    };
    for (FaceRecord& face : geoset.Faces) {
        if (!hasSelectedCorners(geoset, face)) continue;
        for (std::int16_t& corner : face.corner) corner = onCap(corner);
    }
    selectFrom(geoset, oldVertices);
    for (const FaceEdge& edge : open) {
        addSideQuad(geoset, edge, {onCap(edge.start), onCap(edge.end)});
    }
}

}  // namespace corvane
