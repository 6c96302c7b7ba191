// The texture editor's view: drawing, zoom and pan, the background picture, the readout.
#pragma once

#include <string>

#include "model/numbers.h"
#include "uveditor/uv_editor.h"

namespace corvane {

/// The filter of the dialog that picks a background picture: descriptions and patterns in turn.
inline constexpr const char* kPictureFilter = "JPEG Images|*.JPG|GIF Images|*.gif|BMP Images|*.bmp";

/// One press of a pan button, pixels.
inline constexpr int kUVPanStep = 20;

/// Where a texture coordinate is in the view, pixels.
double viewX(const UVEditor& uv, double u);
double viewY(const UVEditor& uv, double v);

/// The texture coordinate at a whole pixel of the view. A view without any size counts as one
/// pixel wide and high.
double textureU(const UVEditor& uv, int x);
double textureV(const UVEditor& uv, int y);

/// Clears the view and draws picture, faces and vertices; nothing before the first data.
void redraw(UVEditor& uv);

/// Zooms in while the zoom is below 10, out while it is above 0.5; redraws in any case.
void uvZoomIn(UVEditor& uv);
void uvZoomOut(UVEditor& uv);

/// Moves the picture (pixels) and redraws.
void uvPan(UVEditor& uv, int dx, int dy);

/// Asks for a picture and puts it under the view. A message where it cannot be read; the picture
/// that was there stays.
void loadImage(UVEditor& uv);

/// Says why a picture could not be read.
void showPictureError(UVEditor& uv, const std::string& path, const std::string& reason);

/// A texture coordinate for the readout boxes, 6 decimals.
std::string readoutText(double coordinate, const UserNumberFormat& format);

}  // namespace corvane
