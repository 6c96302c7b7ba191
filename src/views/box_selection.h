// Selecting the vertices inside a dragged box.
#pragma once

#include "editor.h"

namespace corvane {

/// Selects, adds or deselects (as the mode says) the vertices strictly inside the drag's box on
/// two axes, deleted ones included. Sorts the drag's points, records the step "Selection" and
/// redraws. Does nothing while box selection is off.
void boxSelect(Editor& editor, ViewAxes axes);

}  // namespace corvane
