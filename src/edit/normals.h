// Setting the normals of the selected vertices.
#pragma once

#include "editor.h"

namespace corvane {

/// A vector divided by its length; (1, 0, 0) where the length is 0, or too
/// large for a number.
Triple normalise(const Triple& vector);

/// The command Recalculate Normals: gives every selected vertex the normalised sum of the unit
/// vectors that point to it from its neighbours in every face around its position, deleted faces
/// included. So it points out of a bump, whatever way round the faces are.
void recalculateNormals(Editor& editor);

/// The command Snap Normals: gives all selected vertices the normalised sum of their normals. A
/// message, and nothing else, where they cancel each other out or are too large to be added up.
void snapNormals(Editor& editor);

}  // namespace corvane
