#include "views/navigation.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

#include "base/numbers.h"

namespace corvane {

namespace {

constexpr double kZoomInFactor = 1.25;
constexpr double kZoomOutFactor = 0.8;
constexpr double kNone = std::numeric_limits<double>::infinity();  // before the first coordinate
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

ViewState fitted(const Geoset& geoset, ViewAxes axes, double width, double height) {
    constexpr double kShare = 0.85;  // of the picture that the geoset takes
    // The least and the largest coordinate across, and those upwards.
    std::array<std::array<double, 2>, 2> range = {{{kNone, -kNone}, {kNone, -kNone}}};
    for (const VertexRecord& vertex : geoset.Vertices) {
        if (vertex.deleted) continue;
        for (const auto& [axis, ends] :
             {std::pair(axes.horizontal, &range[0]), std::pair(axes.vertical, &range[1])}) {
            const double value = vertex.pos[slotOf(axis)];
            if (!std::isfinite(value)) continue;
            (*ends)[0] = std::min((*ends)[0], value);
            (*ends)[1] = std::max((*ends)[1], value);
        }
    }
    ViewState view;
    if (range[0][0] > range[0][1] || range[1][0] > range[1][1]) return view;
    double zoom = kNone;
    for (const auto& [ends, size] : {std::pair(range[0], width), std::pair(range[1], height)}) {
        if (ends[1] > ends[0]) zoom = std::min(zoom, kShare * size / (ends[1] - ends[0]));
    }
    if (std::isfinite(zoom) && zoom > 0) view.zoom = zoom;
    view.panX = roundToInt32(-view.zoom * (range[0][0] / 2 + range[0][1] / 2));
    view.panY = roundToInt32(view.zoom * (range[1][0] / 2 + range[1][1] / 2));
    return view;
}

}  // namespace corvane
