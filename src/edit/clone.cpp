#include "edit/clone.h"

#include <algorithm>

#include "edit/selection.h"

namespace corvane {

Growth cloneGrowth(const Geoset& geoset) {
    return {.vertices = static_cast<std::size_t>(countSelectedVertices(geoset)),
            .faces = static_cast<std::size_t>(countSelectedFaces(geoset))};
}

std::vector<std::int16_t> copySelectedVertices(Geoset& geoset) {
    const std::size_t count = geoset.Vertices.size();
    std::vector<std::int16_t> copyOf(count, -1);
    geoset.Vertices.reserve(count + static_cast<std::size_t>(countSelectedVertices(geoset)));
    for (std::size_t i = 0; i < count; ++i) {
        if (!geoset.Vertices[i].selected) continue;
        copyOf[i] = static_cast<std::int16_t>(geoset.Vertices.size());
        geoset.Vertices.push_back(geoset.Vertices[i]);
    }
    return copyOf;
}

void cloneSelected(Geoset& geoset) {
    const std::size_t oldVertices = geoset.Vertices.size();
    const std::size_t oldFaces = geoset.Faces.size();
    const std::vector<std::int16_t> copyOf = copySelectedVertices(geoset);
    for (std::size_t i = oldVertices; i < geoset.Vertices.size(); ++i) {
        geoset.Vertices[i].regrouped = true;
    }
    for (std::size_t i = 0; i < oldFaces; ++i) {
        if (!hasSelectedCorners(geoset, geoset.Faces[i])) continue;
        FaceRecord copy;  // not deleted, even where its source is
        std::ranges::transform(
            geoset.Faces[i].corner, copy.corner.begin(),
            [&](std::int16_t corner) { return copyOf[static_cast<std::size_t>(corner)]; });
        geoset.Faces.push_back(copy);
    }
    selectFrom(geoset, oldVertices);
}

}  // namespace corvane
