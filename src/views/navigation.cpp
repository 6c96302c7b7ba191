#include "views/navigation.h"

#include "views/ortho_view.h"

namespace corvane {

namespace {

constexpr double kZoomInFactor = 1.25;
constexpr double kZoomOutFactor = 0.8;
constexpr double kZoomLimit = 200.0;  // drawing units per model unit; no zooming in from here on

// Scaling the pan along keeps the model point at the picture's centre where it is.
void scale(ViewState& view, double factor) {
    view.zoom *= factor;
    view.panX = roundToInt32(view.panX * factor);
    view.panY = roundToInt32(view.panY * factor);
}

}  // namespace

void zoomIn(Editor& editor, View view) {
    ViewState& state = editor.views[view];
    if (state.zoom < kZoomLimit) scale(state, kZoomInFactor);
    redrawAll(editor);
}

void zoomOut(Editor& editor, View view) {
    scale(editor.views[view], kZoomOutFactor);
    redrawAll(editor);
}

void pan(Editor& editor, View view, int dx, int dy) {
    ViewState& state = editor.views[view];
    state.panX = roundToInt32(static_cast<double>(state.panX) + dx);
    state.panY = roundToInt32(static_cast<double>(state.panY) + dy);
    if (editor.store.modelLoaded) updateView(editor, view);
}

}  // namespace corvane
