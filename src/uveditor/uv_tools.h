// Selecting and transforming texture vertices.
#pragma once

#include "uveditor/uv_editor.h"
#include "views/mouse.h"

namespace corvane {

/// The buttons' handlers. Each refreshes the buttons.
void uvSetSelectMode(UVEditor& uv, SelectMode mode);
void uvSetTransformMode(UVEditor& uv, TransformMode mode);
void uvToggleX(UVEditor& uv);
void uvToggleY(UVEditor& uv);

/// The menu's commands: every vertex, deleted ones too. Each redraws.
void uvSelectAll(UVEditor& uv);
void uvInvertSelection(UVEditor& uv);

/// A button was pressed, or released, at a position of the view (pixels, cut to whole ones).
/// Releasing the left button selects by the box, any other one transforms the selection. Either
/// redraws.
void uvMouseDown(UVEditor& uv, double x, double y);
void uvMouseUp(UVEditor& uv, MouseButton button, double x, double y);

/// Gives a texture coordinate another value, unless that is no finite number: it would be written
/// to the model as none.
void assignCoordinate(UVEditor& uv, double& coordinate, double value);

/// Moves the selection along the enabled axes, texture units.
void uvMove(UVEditor& uv, double du, double dv);

/// Turns the selection about its mean, whatever axes are enabled. Radians.
void uvRotate(UVEditor& uv, double angle);

/// Scales the selection about its mean along the enabled axes.
void uvScale(UVEditor& uv, double factor);

}  // namespace corvane
