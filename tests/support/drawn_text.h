// What a recording surface holds, as texts that are easy to write down and to compare.
#pragma once

#include <ios>
#include <sstream>
#include <string>
#include <vector>

#include "views/recording_surface.h"

namespace corvane {

/// A colour's name, as used in drawnText().
inline std::string colourName(Colour colour) {
    switch (colour) {
        case 0x0000FF:
            return "red";
        case 0xFF0000:
            return "blue";
        case 0x00FF00:
            return "green";
        case 0x000000:
            return "black";
        case 0xFF8080:
            return "lightblue";
        case 0x80000008:
            return "foreground";
        case 0x8000000A:
            return "border";
        default:
            break;
    }
    std::ostringstream out;
    out << "0x" << std::hex << colour;
    return out.str();
}

/// Each primitive as "line X1 Y1 X2 Y2 COLOUR", "box X1 Y1 X2 Y2 COLOUR" or "circle X Y RADIUS
/// COLOUR", drawing units, in drawing order.
inline std::vector<std::string> drawnText(const RecordingSurface& surface) {
    std::vector<std::string> texts;
    for (const Primitive& item : surface.primitives()) {
        std::ostringstream out;
        out.precision(9);
        switch (item.kind) {
            case Primitive::Kind::Line:
                out << "line ";
                break;
            case Primitive::Kind::Box:
                out << "box ";
                break;
            case Primitive::Kind::Circle:
                out << "circle ";
                break;
            case Primitive::Kind::Image:
                out << "image ";
                break;
        }
        out << item.x1 << ' ' << item.y1 << ' ' << item.x2;
        if (item.kind != Primitive::Kind::Circle) out << ' ' << item.y2;
        out << ' ' << colourName(item.colour);
        texts.push_back(out.str());
    }
    return texts;
}

}  // namespace corvane
