// Duplicating the selected part of the geoset.
#pragma once

#include <vector>

#include "base/geoset.h"
#include "edit/limits.h"

namespace corvane {

/// What cloneSelected() adds.
Growth cloneGrowth(const Geoset& geoset);

/// Appends copies of the selected vertices, deleted ones included, to the vertex list. Entry i of
/// the result is the 0-based index of the copy of vertex i, or -1 for one that is not selected.
std::vector<std::int16_t> copySelectedVertices(Geoset& geoset);

/// Appends copies of the selected vertices and of the faces between them, and selects exactly the
/// copies. What cloneGrowth() says must fit.
void cloneSelected(Geoset& geoset);

}  // namespace corvane
