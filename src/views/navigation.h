// Zooming and panning a view, by buttons.
#pragma once

#include "editor.h"

namespace corvane {

/// One press of a pan button, drawing units.
inline constexpr int kPanStep = 300;

/// Zooms by 1.25 while the zoom is below 200, keeping the picture's centre, and redraws all views.
void zoomIn(Editor& editor, View view);

/// Zooms by 0.8 and redraws all views.
void zoomOut(Editor& editor, View view);

/// Moves the drawing of one view (drawing units) and redraws that view.
void pan(Editor& editor, View view, int dx, int dy);

}  // namespace corvane
