#include "edit/kept_counts.h"

#include <algorithm>

namespace corvane {

KeptCounts countKept(const Geoset& geoset) {
    KeptCounts counts;
    for (const VertexRecord& vertex : geoset.Vertices) {
        if (vertex.deleted) continue;
        ++counts.vertices;
        if (vertex.selected) ++counts.selectedVertices;
    }
    const auto vertexOf = [&](std::int16_t corner) -> const VertexRecord& {
        return geoset.Vertices[static_cast<std::size_t>(corner)];
    };
    for (const FaceRecord& face : geoset.Faces) {
        if (face.deleted || std::ranges::any_of(face.corner, [&](std::int16_t corner) {
                return vertexOf(corner).deleted;
            })) {
            continue;
        }
        ++counts.faces;
        if (counts.selectedVertices > 0 &&
            std::ranges::all_of(face.corner,
                                [&](std::int16_t corner) { return vertexOf(corner).selected; })) {
            ++counts.selectedFaces;
        }
    }
    return counts;
}

}  // namespace corvane
