// The modes that the buttons set: what a drag with the left button does to the selection, and what
// a drag with another button does to what is selected.
#pragma once

#include <cstdint>

#include "model/geoset_store.h"
#include "views/drawing_surface.h"

namespace corvane {

struct Editor;

/// The values are the letters that stand for the modes.
enum class SelectMode : char { Select = 'S', Add = 'A', Deselect = 'D' };
enum class TransformMode : char { Move = 'M', Rotate = 'R', Scale = 'S', Extrude = 'E' };

/// Kept when another model is opened.
struct ToolModes {
    SelectMode selectMode = SelectMode::Select;
    TransformMode transformMode = TransformMode::Move;
    bool cloneMode = false;  ///< the next transform leaves a copy behind
    bool activeX = true;     ///< Move and Scale change this axis
    bool activeY = true;
    bool activeZ = true;
    bool selectEnabled = true;        ///< a box may select; off for a moment after opening
    bool placingMarker = false;       ///< the next left-button release places a marker
    bool showNormals = false;         ///< the views draw the vertices' normals
    bool editButtonsEnabled = false;  ///< Snap and Delete can be pressed
    bool tipsEnabled = true;          ///< the tip box follows the mouse
};

/// A drag in a view, in model units on the view's axes. Shared by the three views.
struct DragPoints {
    double dragStartH = 0;
    double dragStartV = 0;
    double dragEndH = 0;
    double dragEndV = 0;
};

/// The buttons' handlers. Each refreshes the buttons.
void setSelectMode(Editor& editor, SelectMode mode);
void setTransformMode(Editor& editor, TransformMode mode);
void toggleClone(Editor& editor);
/// Records the step "Set Active Axes" first.
void toggleActive(Editor& editor, Axis axis);

/// Switches the display of normals and redraws.
void toggleShowNormals(Editor& editor);

/// The back colours of the mode buttons.
Colour colourOf(const ToolModes& modes, SelectMode button);
Colour colourOf(const ToolModes& modes, TransformMode button);
Colour cloneColour(const ToolModes& modes);
Colour axisColour(bool active);

}  // namespace corvane
