// The commands on vertex groups and matrix groups.
#pragma once

#include "editor/editor.h"

namespace corvane {

/// Asks for a group number until it is one of 16 signed bits (a message names the range where it is
/// beyond), and gives it to the selected vertices, deleted ones included. An empty answer or Cancel
/// changes nothing.
void assignVertexGroup(Editor& editor);

/// Asks for a group number and selects its vertices that are not deleted, as the selection mode
/// says. Cancel changes nothing. No undo step.
void selectByVertexGroup(Editor& editor);

/// Says which groups the selected vertices belong to.
void showVertexGroups(Editor& editor);

/// Lists all matrix groups in message boxes, a page at a time.
void viewMatrices(Editor& editor);

/// Asks for control bones one by one and appends a matrix group with the first four. An empty
/// answer or Cancel ends the asking; at the first question it adds nothing. Nothing before a model
/// is loaded.
void addMatrix(Editor& editor);

}  // namespace corvane
