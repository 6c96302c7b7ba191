// Zooming and panning a view.
#pragma once

#include "base/geoset.h"
#include "views/view_state.h"

namespace corvane {

/// One press of a pan button, drawing units.
inline constexpr int kPanStep = 300;

/// Zooms by 1.25 while the zoom is below 200, keeping the picture's centre.
void zoomIn(ViewState& view);

/// Zooms by 0.8.
void zoomOut(ViewState& view);

/// Moves the drawing, drawing units.
void pan(ViewState& view, int dx, int dy);

/// A view that shows the whole geoset in the middle of a picture of that size, drawing units.
ViewState fitted(const Geoset& geoset, ViewAxes axes, double width, double height);

}  // namespace corvane
