// The three drag transforms. Each records a step when asked to, changes the selected vertices in
// place (deleted ones too), ends clone mode, redraws and refreshes the buttons.
#pragma once

#include "editor.h"

namespace corvane {

/// Moves the selection by `delta` (model units, slot order) along the active axes.
void moveSelection(Editor& editor, const Triple& delta, bool recordUndo);

/// The factor of a scaling drag with the deltas a and b (model units): at least 1 when a >= b, at
/// most 1 otherwise. It grows with the square root of the drag's length.
double scaleFactor(double a, double b);

/// Scales the selection about its centre along the active axes, by scaleFactor(a, b).
void scaleSelection(Editor& editor, double a, double b, bool recordUndo);

/// Turns the selection's positions and normals about its centre, whatever axes are active, by half
/// of `angle` (degrees). `angle` is in/out: it is halved in place.
void rotateSelection(Editor& editor, double& angle, Axis axis, bool recordUndo);

}  // namespace corvane
