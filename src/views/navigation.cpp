#include "views/navigation.h"

#include "base/numbers.h"

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

void zoomIn(ViewState& view) {
    if (view.zoom < kZoomLimit) scale(view, kZoomInFactor);
}

void zoomOut(ViewState& view) { scale(view, kZoomOutFactor); }

void pan(ViewState& view, int dx, int dy) {
    view.panX = roundToInt32(static_cast<double>(view.panX) + dx);
    view.panY = roundToInt32(static_cast<double>(view.panY) + dy);
}

}  // namespace corvane
