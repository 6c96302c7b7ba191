// A drawing surface that keeps what is drawn as a list. The pictures paint from such a list, and
// tests read it.
#pragma once

#include <vector>

#include "views/drawing_surface.h"

namespace corvane {

/// One thing drawn. Box: (x1, y1) to (x2, y2). Circle: centre (x1, y1), radius x2. Image: corner
/// (x1, y1), width x2, height y2. Drawing units.
struct Primitive {
    enum class Kind : std::uint8_t { Line, Box, Circle, Image };
    double x1 = 0;
    double y1 = 0;
    double x2 = 0;
    double y2 = 0;
    Colour colour = kBlack;
    Kind kind = Kind::Line;

    bool operator==(const Primitive&) const = default;
};

class RecordingSurface : public DrawingSurface {
public:
    RecordingSurface(double width, double height) : width_(width), height_(height) {}

    double width() const override { return width_; }
    double height() const override { return height_; }
    void clear() override { primitives_.clear(); }
    void line(double x1, double y1, double x2, double y2, Colour colour) override {
        primitives_.push_back({x1, y1, x2, y2, colour, Primitive::Kind::Line});
    }
    void box(double x1, double y1, double x2, double y2, Colour colour) override {
        primitives_.push_back({x1, y1, x2, y2, colour, Primitive::Kind::Box});
    }
    void circle(double x, double y, double radius, Colour colour) override {
        primitives_.push_back({x, y, radius, 0, colour, Primitive::Kind::Circle});
    }
    void image(double x, double y, double width, double height) override {
        primitives_.push_back({x, y, width, height, kBlack, Primitive::Kind::Image});
    }

    /// What was drawn since the latest clear(), in order.
    const std::vector<Primitive>& primitives() const { return primitives_; }

    void resize(double width, double height) {
        width_ = width;
        height_ = height;
    }

    /// Moves all that was drawn.
    void shift(double dx, double dy) {
        for (Primitive& item : primitives_) {
            item.x1 += dx;
            item.y1 += dy;
            if (item.kind != Primitive::Kind::Line && item.kind != Primitive::Kind::Box) continue;
            item.x2 += dx;
            item.y2 += dy;
        }
    }

private:
    double width_;
    double height_;
    std::vector<Primitive> primitives_;
};

}  // namespace corvane
