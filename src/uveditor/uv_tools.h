// Selecting and transforming texture vertices.
#pragma once

#include "uveditor/uv_state.h"

namespace corvane {

/// Selects by the drag's box, as the mode says, deleted vertices too. Sorts the drag's ends.
void uvSelectByBox(UVState& uv);

/// Transforms the selection by the drag, as the mode says.
void uvTransform(UVState& uv);

/// Gives a texture coordinate another value, unless that is no finite number: it would be written
/// to the model as none.
void assignCoordinate(UVState& uv, double& coordinate, double value);

/// Moves the selection along the enabled axes, texture units.
void uvMove(UVState& uv, double du, double dv);

/// Turns the selection about its mean, whatever axes are enabled. Radians.
void uvRotate(UVState& uv, double angle);

/// Scales the selection about its mean along the enabled axes.
void uvScale(UVState& uv, double factor);

}  // namespace corvane
