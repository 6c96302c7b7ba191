// The fourth picture: a turntable view of the heights of the vertices.
#pragma once

#include "editor.h"

namespace corvane {

/// Projected height of a vertex; nothing where the vertex lies in the plane of the eye.
std::optional<double> perspVertical(const PerspectiveState& state, const VertexRecord& vertex);

/// Projected horizontal position of a vertex: always 0, so that all is drawn on the picture's
/// vertical centre line.
double perspHorizontal(const VertexRecord& vertex);

/// Clears the perspective picture and draws the geoset into it, what is deleted included. Called
/// when a model is opened and by the picture's own buttons, not when the geoset changes.
void drawPerspective(Editor& editor);

/// The picture's buttons: change one value of the view, then draw it. The turn drops whole
/// revolutions, the other two stay within 16 signed bits.
void turnPerspective(Editor& editor, int degrees);
void raisePerspective(Editor& editor, int offset);
void zoomPerspective(Editor& editor, int distance);

}  // namespace corvane
