#include "app/picture_painter.h"

#include <QLineF>
#include <QRectF>

#include "app/theme.h"

namespace corvane {

namespace {

// Coordinates far outside a picture are beyond what a painter draws right; nothing of them shows
// where they are cut off.
constexpr double kFarAway = 1e6;  // pixels

// Collects neighbours of one colour, which are much cheaper painted together.
class Batch {
public:
    explicit Batch(QPainter& painter) : painter_(painter) {}

    void line(const QLineF& line) { lines_.push_back(line); }
    void box(const QRectF& box) { boxes_.push_back(box); }

    void flush() {
        if (!lines_.empty()) painter_.drawLines(lines_.data(), static_cast<int>(lines_.size()));
        if (!boxes_.empty()) painter_.drawRects(boxes_.data(), static_cast<int>(boxes_.size()));
        lines_.clear();
        boxes_.clear();
    }

private:
    QPainter& painter_;
    std::vector<QLineF> lines_;
    std::vector<QRectF> boxes_;
};

}  // namespace

void paintPrimitives(QPainter& painter, const std::vector<Primitive>& primitives,
                     double unitsPerPixel, const QPalette& palette) {
    Batch batch(painter);
    bool first = true;
    Colour colour = kBlack;
    Primitive::Kind kind = Primitive::Kind::Line;
    const auto px = [&](double units) {
        return std::clamp(units / unitsPerPixel, -kFarAway, kFarAway);
    };
    painter.setBrush(Qt::NoBrush);
    for (const Primitive& item : primitives) {
        if (first || item.colour != colour || item.kind != kind) {
            batch.flush();
            if (first || item.colour != colour) {
                QPen pen(painted(item.colour, palette));
                pen.setWidth(1);
                painter.setPen(pen);
            }
            first = false;
            colour = item.colour;
            kind = item.kind;
        }
        switch (item.kind) {
            case Primitive::Kind::Line:
                batch.line({px(item.x1), px(item.y1), px(item.x2), px(item.y2)});
                break;
            case Primitive::Kind::Box:
                batch.box({QPointF(px(item.x1), px(item.y1)), QPointF(px(item.x2), px(item.y2))});
                break;
            case Primitive::Kind::Circle:
                painter.drawEllipse(QPointF(px(item.x1), px(item.y1)), px(item.x2), px(item.x2));
                break;
            case Primitive::Kind::Image:
                break;  // these pictures hold none
        }
    }
    batch.flush();
}

}  // namespace corvane
