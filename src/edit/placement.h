// Placing the selected vertices exactly: mirrored, aligned, at typed coordinates.
#pragma once

#include "editor.h"

namespace corvane {

/// Mirrors the selection across its centre on one axis; that component of the normals changes its
/// sign. A step even with nothing selected.
void mirrorSelection(Editor& editor, Axis axis);

/// Puts the selection on its centre's plane across one axis. Nothing with nothing selected.
void alignSelection(Editor& editor, Axis axis);

/// Asks for three coordinates, each until it is a number, and puts the selection there.
void setCoordinates(Editor& editor);

}  // namespace corvane
