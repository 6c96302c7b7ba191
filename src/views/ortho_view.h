// Draws the geoset in the front, top and left views.
#pragma once

#include "editor.h"

namespace corvane {

/// A point in a picture, drawing units.
struct ScreenPoint {
    double x = 0;
    double y = 0;
};

/// Where a model point with the components h and v (model units) on a view's axes is drawn on a
/// surface of that size. Whole units: rounded to even before the pan is added.
ScreenPoint project(double h, double v, double width, double height, const ViewState& view);

/// Clears a surface and draws everything into it: axis marks, faces, vertices, normals, markers.
void updateView(const Editor& editor, DrawingSurface& drawTo, ViewAxes axes, const ViewState& view);

/// updateView() for one view, with its own picture and state.
void updateView(Editor& editor, View view);

/// Draws the three views; nothing while no model is loaded.
void redrawAll(Editor& editor);

}  // namespace corvane
