#include "edit/weld.h"

#include <algorithm>

#include "edit/selection.h"

namespace corvane {

void snapSelected(Geoset& geoset) {
    const Triple centre = selectionCentre(geoset);
    for (VertexRecord& vertex : geoset.Vertices) {
        if (vertex.selected) vertex.pos = centre;
    }
}

void weldSelected(Geoset& geoset) {
    const auto survivor = std::ranges::find_if(geoset.Vertices, &VertexRecord::selected);
    if (survivor == geoset.Vertices.end()) return;
    survivor->pos = selectionCentre(geoset);
    const auto survivorIndex = static_cast<std::int16_t>(survivor - geoset.Vertices.begin());
    for (FaceRecord& face : geoset.Faces) {
        if (face.deleted) continue;
        for (std::int16_t& corner : face.corner) {
            if (geoset.vertexAt(corner).selected) corner = survivorIndex;
        }
    }
    for (VertexRecord& vertex : geoset.Vertices) {
        if (!vertex.selected || vertex.deleted || &vertex == &*survivor) continue;
        vertex.selected = false;
        vertex.deleted = true;
    }
}

}  // namespace corvane
