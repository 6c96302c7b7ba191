// The transforms of a drag as commands: each records its step, in clone mode leaves a copy behind,
// changes the selection and ends clone mode.
#pragma once

#include "editor/editor.h"

namespace corvane {

/// Moves the selection by `delta` (model units, slot order) along the active axes. The step "Move".
void moveSelection(Editor& editor, const Triple& delta);

/// Scales the selection about its centre along the active axes, by scaleFactor(a, b). The step
/// "Scale".
void scaleSelection(Editor& editor, double a, double b);

/// Turns the selection about its centre, by half of `angle` (degrees), which is in/out: it is
/// halved in place. The step "Rotate" with the axis' letter.
void rotateSelection(Editor& editor, double& angle, Axis axis);

/// Extrudes the selected faces and moves the cap by `delta` along the active axes. The step
/// "Extrude". Refused with the numbers where the geoset would pass its limits.
void extrudeSelection(Editor& editor, const Triple& delta);

}  // namespace corvane
