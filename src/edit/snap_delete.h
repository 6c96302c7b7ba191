// Commands that collapse the selection or take it out of the mesh.
#pragma once

#include "editor.h"

namespace corvane {

/// The command Snap: puts every selected vertex on the selection's centre, on all three axes.
/// The vertices stay separate.
void snapSelection(Editor& editor);

/// The command Weld: the selected vertex with the lowest number goes to the selection's centre and
/// takes the place of the others in all faces that are not deleted; the others are flagged deleted
/// and deselected. Faces may end up with several corners on it. Nothing with nothing selected.
void weldSelection(Editor& editor);

/// The command Delete: flags every selected vertex deleted. It stays selected, and undoing clears
/// the flag of what is selected then.
void deleteSelection(Editor& editor);

/// The command Delete Face: flags every face deleted whose three corners are all selected. The
/// vertices stay.
void deleteSelectedFaces(Editor& editor);

}  // namespace corvane
