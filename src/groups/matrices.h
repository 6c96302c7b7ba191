// The matrix groups: which bones drive the vertices of each group.
#pragma once

#include "editor.h"

namespace corvane {

/// Lists all matrix groups in message boxes, a page at a time; at most five bones of a group.
void viewMatrices(Editor& editor);

/// Asks for control bones one by one and appends a matrix group with the first four. An empty
/// answer or Cancel ends the asking; at the first question it adds nothing. Nothing before a model
/// is loaded.
void addMatrix(Editor& editor);

}  // namespace corvane
