// What the selection is: how many vertices, where its centre lies; and the commands that change it
// as a whole.
#pragma once

#include "editor.h"

namespace corvane {

/// The number of selected vertices, deleted ones included; 0 while no model is loaded.
int numSelVerts(const GeosetStore& store);

/// The mean coordinate on one axis over the selected vertices that are not deleted, model units;
/// 0 where there are none.
double selectionCentre(const GeosetStore& store, Axis axis);

/// selectionCentre() of the three axes, in slot order.
Triple selectionCentre(const GeosetStore& store);

/// The command Select All: selects every vertex, deleted ones included.
void selectAll(Editor& editor);

/// The command Invert Selection.
void invertSelection(Editor& editor);

/// The command Expand Selection: selects every vertex that a chain of faces connects to a selected
/// one, whatever is deleted.
void expandSelection(Editor& editor);

/// Message boxes with the number of selected vertices, and of faces whose corners are all selected.
void showVertexCount(Editor& editor);
void showFaceCount(Editor& editor);

/// The selection's centre as a triple of model text, in the file's order and rounded to 6
/// decimals: shown in an input box to copy from, or put on the clipboard.
void viewCentreOfMass(Editor& editor);
void copyCentreOfMass(Editor& editor);

}  // namespace corvane
