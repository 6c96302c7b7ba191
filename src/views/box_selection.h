// Selecting the vertices inside a dragged box.
#pragma once

#include "base/geoset.h"
#include "base/tool_mode.h"
#include "views/tool_modes.h"
#include "views/view_state.h"

namespace corvane {

/// Brings the start of a drag below its end on both axes.
void sortDrag(DragPoints& drag);

/// Selects, adds or deselects (as the mode says) the vertices strictly inside a sorted drag's box
/// on two axes, deleted ones included.
void selectInBox(Geoset& geoset, const DragPoints& box, ViewAxes axes, SelectMode mode);

}  // namespace corvane
