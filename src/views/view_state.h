// Where each view looks: zoom, pan, and the axes that it shows.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/axis.h"

namespace corvane {

/// The orthographic views.
enum class View : std::uint8_t { Front, Top, Left };
inline constexpr std::array<View, 3> kViews = {View::Front, View::Top, View::Left};

/// The axes that a view shows from left to right and from bottom to top.
struct ViewAxes {
    Axis horizontal;
    Axis vertical;
};

constexpr ViewAxes axesOf(View view) {
    switch (view) {
        case View::Front:
            return {Axis::X, Axis::Y};
        case View::Top:
            return {Axis::X, Axis::Z};
        case View::Left:
            break;
    }
    return {Axis::Z, Axis::Y};
}

/// The axis that a view looks along, about which it rotates.
constexpr Axis depthAxisOf(View view) {
    switch (view) {
        case View::Front:
            return Axis::Z;
        case View::Top:
            return Axis::Y;
        case View::Left:
            break;
    }
    return Axis::X;
}

struct ViewState {
    double zoom = 20.0;     ///< drawing units per model unit
    std::int32_t panX = 0;  ///< drawing units added to every drawn point
    std::int32_t panY = 0;
};

/// The state of the three views; kept when another model is opened.
struct ViewStates {
    std::array<ViewState, 3> states;

    ViewState& operator[](View view) { return states[static_cast<std::size_t>(view)]; }
    const ViewState& operator[](View view) const { return states[static_cast<std::size_t>(view)]; }
};

/// The turntable of the perspective view.
struct PerspectiveState {
    std::int16_t yaw = 0;       ///< turn about the vertical axis, degrees
    std::int16_t offset = 0;    ///< added to every vertex's height, model units
    std::int16_t distance = 0;  ///< added to every vertex's depth, model units
    /// How far across each vertex lay at the latest drawing, model units. Nothing is drawn by it.
    std::vector<double> across;
};

}  // namespace corvane
