// Appends a geoset of another model to the one that is being edited.
#pragma once

#include "editor/editor.h"

namespace corvane {

/// The command Merge: lets the user pick a geoset of a model file and appends its vertices and
/// faces, selected, to the store. Its matrix groups are left behind; the vertices keep their group
/// numbers. Undone as the step "Merge". Refused, with the numbers, where the result would pass
/// kMaxVertices or kMaxFaces.
void mergeGeoset(Editor& editor);

}  // namespace corvane
