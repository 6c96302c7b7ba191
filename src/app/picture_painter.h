// Paints a list of primitives.
#pragma once

#include <QPainter>
#include <QPalette>
#include <vector>

#include "views/recording_surface.h"

namespace corvane {

/// Paints primitives in drawing units, `unitsPerPixel` of them to a pixel of the painter. Lines
/// are one pixel wide. Images are left out; they lie under everything else, so whoever has them
/// paints them before. Where there is one, lines and boxes have a margin in the palette's base
/// colour, a pixel on each side, so that they are seen whatever the image shows.
void paintPrimitives(QPainter& painter, const std::vector<Primitive>& primitives,
                     double unitsPerPixel, const QPalette& palette);

}  // namespace corvane
