// Paints a list of primitives.
#pragma once

#include <QPainter>
#include <QPalette>
#include <vector>

#include "views/recording_surface.h"

namespace corvane {

/// Paints primitives in drawing units, `unitsPerPixel` of them to a pixel of the painter. Lines
/// are one pixel wide. Images are left out; they lie under everything else, so whoever has them
/// paints them before.
void paintPrimitives(QPainter& painter, const std::vector<Primitive>& primitives,
                     double unitsPerPixel, const QPalette& palette);

}  // namespace corvane
