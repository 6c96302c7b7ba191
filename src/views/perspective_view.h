// The fourth picture: a turntable view of the heights of the vertices.
#pragma once

#include <optional>

#include "base/geoset.h"
#include "views/drawing_surface.h"
#include "views/view_state.h"

namespace corvane {

/// Projected height of a vertex; nothing where the vertex lies in the plane of the eye.
std::optional<double> perspVertical(const PerspectiveState& state, const VertexRecord& vertex);

/// Projected horizontal position of a vertex: always 0, so that all is drawn on the picture's
/// vertical centre line.
double perspHorizontal(const VertexRecord& vertex);

/// Clears a surface and draws the geoset into it, what is deleted included. Keeps in `state` how
/// far across each vertex lies.
void drawPerspective(const Geoset& geoset, PerspectiveState& state, DrawingSurface& picture);

/// Change one value of the view. The turn drops whole revolutions, the other two stay within 16
/// signed bits.
void turnPerspective(PerspectiveState& state, int degrees);
void raisePerspective(PerspectiveState& state, int offset);
void zoomPerspective(PerspectiveState& state, int distance);

}  // namespace corvane
