// The tools of the menus that ask or answer something, or whose step is not taken before the
// change. The others need no command of their own: the menu's table names their operation and their
// step.
#pragma once

#include "editor/editor.h"

namespace corvane {

/// The number of selected vertices, deleted ones included; 0 while no model is loaded.
int numSelVerts(const GeosetStore& store);

/// The command Delete: flags every selected vertex deleted. It stays selected, and undoing clears
/// the flag of what is selected then. The step is taken after the change.
void deleteSelection(Editor& editor);

/// The command Snap Normals: gives all selected vertices the normalised sum of their normals. A
/// message, and nothing else, where they cancel each other out or are too large to be added up.
void snapNormals(Editor& editor);

/// The command Set Coordinates: asks for three coordinates, each until it is a number, and puts the
/// selection there. The step is taken before the asking.
void setCoordinates(Editor& editor);

/// Message boxes with the number of selected vertices, and of faces whose corners are all selected.
void showVertexCount(Editor& editor);
void showFaceCount(Editor& editor);

/// The selection's centre as a triple of model text, in the file's order and rounded to 6
/// decimals: shown in an input box to copy from, or put on the clipboard.
void viewCentreOfMass(Editor& editor);
void copyCentreOfMass(Editor& editor);

}  // namespace corvane
