// What the views draw on, in drawing units (twips, 15 to a pixel, in the main window's pictures).
#pragma once

#include "base/colour.h"

namespace corvane {

class DrawingSurface {
public:
    virtual ~DrawingSurface() = default;

    /// The inner width and height, drawing units.
    virtual double width() const = 0;
    virtual double height() const = 0;

    virtual void clear() = 0;
    /// A line, one unit wide.
    virtual void line(double x1, double y1, double x2, double y2, Colour colour) = 0;
    /// The outline of a box between two corners.
    virtual void box(double x1, double y1, double x2, double y2, Colour colour) = 0;
    /// The outline of a circle.
    virtual void circle(double x, double y, double radius, Colour colour) = 0;
    /// The surface's image, stretched over a rectangle.
    virtual void image(double x, double y, double width, double height) = 0;
};

}  // namespace corvane
