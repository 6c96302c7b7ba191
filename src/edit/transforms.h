// The three transforms of a drag. Each changes the selected vertices in place, deleted ones too.
#pragma once

#include "base/geoset.h"

namespace corvane {

/// Moves the selection by `delta` (model units, slot order) along the active axes.
void moveSelected(Geoset& geoset, const Triple& delta, const ActiveSlots& active);

/// The factor of a scaling drag with the deltas a and b (model units): at least 1 when a >= b, at
/// most 1 otherwise. It grows with the square root of the drag's length.
double scaleFactor(double a, double b);

/// Scales the selection about its centre along the active axes, by scaleFactor(a, b).
void scaleSelected(Geoset& geoset, double a, double b, const ActiveSlots& active);

/// Turns the selection's positions and normals about its centre, whatever axes are active, by half
/// of `angle` (degrees). `angle` is in/out: it is halved in place.
void rotateSelected(Geoset& geoset, double& angle, Axis axis);

}  // namespace corvane
