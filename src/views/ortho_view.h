// Draws the geoset in the front, top and left views.
#pragma once

#include "base/geoset.h"
#include "views/drawing_surface.h"
#include "views/markers.h"
#include "views/view_state.h"

namespace corvane {

/// A point in a picture, drawing units.
struct ScreenPoint {
    double x = 0;
    double y = 0;
};

/// Where a model point with the components h and v (model units) on a view's axes is drawn on a
/// surface of that size. Whole units: rounded to even before the pan is added.
ScreenPoint project(double h, double v, double width, double height, const ViewState& view);

/// What the orthographic views show.
struct Scene {
    const Geoset& geoset;
    const MarkerTable& markers;
    bool showNormals = false;
};

/// Clears a surface and draws everything into it: axis marks, faces, vertices, normals, markers.
void drawView(const Scene& scene, DrawingSurface& drawTo, ViewAxes axes, const ViewState& view);

}  // namespace corvane
