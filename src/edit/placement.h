// Placing the selected vertices exactly: mirrored, aligned, at given coordinates.
#pragma once

#include "base/geoset.h"

namespace corvane {

/// Mirrors the selection across its centre on one axis; that component of the normals changes its
/// sign.
void mirrorSelected(Geoset& geoset, Axis axis);

/// Puts the selection on its centre's plane across one axis.
void alignSelected(Geoset& geoset, Axis axis);

/// Puts every selected vertex at one place (model units, slot order).
void placeSelected(Geoset& geoset, const Triple& place);

}  // namespace corvane
