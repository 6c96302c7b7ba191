// The vertex groups: which matrix group each vertex belongs to.
#pragma once

#include "editor.h"

namespace corvane {

/// Asks for a group number until it is one of 16 signed bits, and gives it to the selected
/// vertices, deleted ones included. An empty answer or Cancel changes nothing.
void assignVertexGroup(Editor& editor);

/// Asks for a group number and selects its vertices that are not deleted, as the selection mode
/// says. Cancel changes nothing. No undo step.
void selectByVertexGroup(Editor& editor);

/// Says which groups the selected vertices belong to.
void showVertexGroups(Editor& editor);

}  // namespace corvane
