// What the mouse does in the three views: the readout, the drag, and which tool a release calls.
#pragma once

#include <string>

#include "editor/editor.h"
#include "views/mouse_button.h"

namespace corvane {

/// A point in model units on a view's axes.
struct ModelPoint {
    double h = 0;
    double v = 0;
};

/// The model point under (x, y), drawing units in a view's picture.
ModelPoint toModel(const Editor& editor, View view, double x, double y);

/// Texts for the readout boxes; which number goes to which box depends on the view.
struct Readout {
    std::string x;
    std::string y;
    std::string z;
};

/// The mouse was moved to (x, y), drawing units: shows the view's tip and returns the readout.
Readout mouseMove(Editor& editor, View view, double x, double y);

/// A button was pressed at (x, y), drawing units.
void mouseDown(Editor& editor, View view, double x, double y);

/// A button was released at (x, y), drawing units: runs the tool of the current mode.
void mouseUp(Editor& editor, View view, MouseButton button, double x, double y);

/// The end of a drag with the left button: selects, adds or deselects the vertices strictly inside
/// its box on two axes. Sorts the drag's points. The step "Selection". Nothing while box selection
/// is off.
void boxSelect(Editor& editor, ViewAxes axes);

}  // namespace corvane
