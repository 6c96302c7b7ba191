// The texture editor's view: drawing, zoom and pan, the background picture, the readout.
#pragma once

#include <string>

#include "base/numbers.h"
#include "uveditor/uv_state.h"

namespace corvane {

/// One press of a pan button, pixels.
inline constexpr int kUVPanStep = 20;

/// Where a texture coordinate is in the view, pixels.
double viewX(const UVState& uv, double u);
double viewY(const UVState& uv, double v);

/// The texture coordinate at a whole pixel of the view. A view without any size counts as one
/// pixel wide and high.
double textureU(const UVState& uv, int x);
double textureV(const UVState& uv, int y);

/// Clears the view and draws picture, faces and vertices; nothing before the first data.
void drawTextureView(UVState& uv);

/// Zooms in while the zoom is below 10, out while it is above 0.5.
void zoomIn(UVState& uv);
void zoomOut(UVState& uv);

/// Moves the picture, pixels.
void pan(UVState& uv, int dx, int dy);

/// A texture coordinate for the readout boxes, 6 decimals.
std::string readoutText(double coordinate, const UserNumberFormat& format);

}  // namespace corvane
