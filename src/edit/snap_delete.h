// Commands that collapse the selection or take it out of the mesh.
#pragma once

#include "editor.h"

namespace corvane {

/// The command Snap: puts every selected vertex on the selection's centre, on all three axes.
/// The vertices stay separate.
void snapSelection(Editor& editor);

/// The command Delete: flags every selected vertex deleted. It stays selected, and undoing clears
/// the flag of what is selected then.
void deleteSelection(Editor& editor);

}  // namespace corvane
