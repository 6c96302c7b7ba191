// Pulling the selected faces out of the surface.
#pragma once

#include "editor.h"

namespace corvane {

/// Duplicates the selected vertices, makes the selected faces the cap on the duplicates, closes
/// the gap along the open edges of the selected region with two triangles each, selects the
/// duplicates and moves them by `delta` (model units, slot order) along the active axes. Edges are
/// matched by position, so a seam is no open edge. One step, "Extrude". Refused with the numbers
/// where the geoset would pass its limits.
void extrudeSelection(Editor& editor, const Triple& delta);

}  // namespace corvane
