// What the views draw on, in drawing units (twips, 15 to a pixel, in the main window's pictures).
#pragma once

#include <cstdint>

namespace corvane {

/// 0x00BBGGRR, or with the top bit set one of the system's colours.
using Colour = std::uint32_t;

inline constexpr Colour kRed = 0x0000FF;
inline constexpr Colour kBlue = 0xFF0000;
inline constexpr Colour kGreen = 0x00FF00;
inline constexpr Colour kBlack = 0x000000;
inline constexpr Colour kNormalColour = 0xFF8080;
inline constexpr Colour kWhite = 0xFFFFFF;
inline constexpr Colour kCloneColour = 0x8080FF;
inline constexpr Colour kInactiveAxisColour = 0x808080;

/// System colours, which follow the user's theme.
inline constexpr Colour kForeground = 0x80000008;    ///< a picture's foreground
inline constexpr Colour kActiveBorder = 0x8000000A;  ///< edges of faces
inline constexpr Colour kButtonFace = 0x8000000F;    ///< buttons

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
