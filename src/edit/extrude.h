// Pulling the selected faces out of the surface.
#pragma once

#include <vector>

#include "base/geoset.h"
#include "edit/limits.h"

namespace corvane {

/// An edge of a selected face, by its corners.
struct FaceEdge {
    std::int16_t start;
    std::int16_t end;
};

/// The edges of the selected faces that no other edge of a selected face lies on, in face order.
/// Edges are matched by position, whichever way round they run, so a seam is no open edge.
std::vector<FaceEdge> openEdges(const Geoset& geoset);

/// What extrudeSelected() adds.
Growth extrudeGrowth(const Geoset& geoset, const std::vector<FaceEdge>& open);

/// Duplicates the selected vertices, makes the selected faces the cap on the duplicates, closes the
/// gap along the open edges with two triangles each, and selects exactly the duplicates, which lie
/// where the originals do. `open` are the geoset's openEdges(); what extrudeGrowth() says must fit.
void extrudeSelected(Geoset& geoset, const std::vector<FaceEdge>& open);

}  // namespace corvane
