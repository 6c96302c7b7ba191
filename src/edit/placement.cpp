#include "edit/placement.h"

#include <cmath>

#include "edit/selection.h"

namespace corvane {

void mirrorSelected(Geoset& geoset, Axis axis) {
    const std::size_t slot = slotOf(axis);
    const double centre = selectionCentre(geoset, axis);
    for (VertexRecord& vertex : geoset.Vertices) {
        if (!vertex.selected) continue;
        const double mirrored = 2 * centre - vertex.pos[slot];
        if (std::isfinite(mirrored)) vertex.pos[slot] = mirrored;
        vertex.normal[slot] = -vertex.normal[slot];
    }
}

void alignSelected(Geoset& geoset, Axis axis) {
    const double centre = selectionCentre(geoset, axis);
    for (VertexRecord& vertex : geoset.Vertices) {
        if (vertex.selected) vertex.pos[slotOf(axis)] = centre;
    }
}

void placeSelected(Geoset& geoset, const Triple& place) {
    for (VertexRecord& vertex : geoset.Vertices) {
        if (vertex.selected) vertex.pos = place;
    }
}

}  // namespace corvane
