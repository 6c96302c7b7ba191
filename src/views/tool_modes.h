// The modes that the buttons set: what a drag with the left button does to the selection, and what
// a drag with another button does to what is selected.
#pragma once

#include "base/axis.h"
#include "base/colour.h"
#include "base/tool_mode.h"

namespace corvane {

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

/// The axes as the flags of their slots, and back.
ActiveSlots activeSlots(const ToolModes& modes);
void setActiveSlots(ToolModes& modes, const ActiveSlots& active);

/// The back colours of the mode buttons.
Colour colourOf(const ToolModes& modes, SelectMode button);
Colour colourOf(const ToolModes& modes, TransformMode button);
Colour cloneColour(const ToolModes& modes);
Colour axisColour(bool active);

}  // namespace corvane
