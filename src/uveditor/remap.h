// Texture coordinates from a projection of the mesh onto a plane.
#pragma once

#include <vector>

#include "base/geoset.h"

namespace corvane {

/// From where the selection is projected.
enum class RemapPlane { Top, Front, Left };

/// The axes that become u and v.
struct RemapAxes {
    Axis u;
    Axis v;
};
RemapAxes axesOf(RemapPlane plane);

/// The coordinates of the selected vertices on one axis, stretched so that the least becomes 0 and
/// the greatest 1; 0 for the others. Extremes beyond 6400 model units from the origin on one side
/// only are not recognised as such. An axis on which the selection has no extent gives 0
/// everywhere. Entries of `selected` beyond the vertex list count for nothing.
std::vector<double> remap(const Geoset& geoset, const std::vector<bool>& selected, Axis axis);

/// Whether remap() has an extent to stretch on that axis, or nothing is selected.
bool hasRemapExtent(const Geoset& geoset, const std::vector<bool>& selected, Axis axis);

}  // namespace corvane
