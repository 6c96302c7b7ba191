#include "app/picture_painter.h"

#include <QImage>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <span>
#include <utility>

#include "app/theme.h"

namespace corvane {

namespace {

// Draws lines straight into an image. A mesh is very many short lines in
// colours that take turns; what QPainter does for each of them takes several
// times as long. Which pixels a line covers is as QPainter has it.
class LineCanvas {
public:
    /// Lines are `lineWidth` pixels of the image wide.
    LineCanvas(QImage& image, int lineWidth)
        : pixels_(reinterpret_cast<QRgb*>(image.bits())),
          across_{1, image.width()},
          down_{image.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb)), image.height()},
          lineWidth_(lineWidth) {}

    void line(QPointF from, QPointF to, QRgb colour) {
        const Point p = inSubpixels(from);
        const Point q = inSubpixels(to);
        if (std::abs(q.x - p.x) >= std::abs(q.y - p.y)) {
            line(across_, down_, p.x, p.y, q.x, q.y, colour);
        } else {
            line(down_, across_, p.y, p.x, q.y, q.x, colour);
        }
    }

    void box(QPointF corner, QPointF opposite, QRgb colour) {
        const Point p = inSubpixels(corner);
        const Point q = inSubpixels(opposite);
        line(across_, down_, p.x, p.y, q.x, p.y, colour);
        line(across_, down_, p.x, q.y, q.x, q.y, colour);
        line(down_, across_, p.y, p.x, q.y, p.x, colour);
        line(down_, across_, p.y, q.x, q.y, q.x, colour);
    }

private:
    using Subpixels = std::int64_t;  // 64ths of a pixel
    static constexpr int kSubpixelBits = 6;
    static constexpr Subpixels kHalfPixel = 1 << (kSubpixelBits - 1);

    struct Point {
        Subpixels x;
        Subpixels y;
    };

    // One direction of the image: the way from a pixel to the next one, and how
    // many there are.
    struct Direction {
        qsizetype step;
        int count;
    };

    // A line's pixels begin half of what its width is above 1 before it.
    Subpixels inSubpixels(double pixels) const {
        constexpr double kFarAway = 1e8;  // nothing of a line shows where it is cut off there
        // In this order of arguments NaN, too, goes far away.
        const double near = std::min(std::max(-kFarAway, pixels), kFarAway);
        return static_cast<Subpixels>(near * (1 << kSubpixelBits)) - (lineWidth_ - 1) * kHalfPixel;
    }
    Point inSubpixels(QPointF point) const {
        return {inSubpixels(point.x()), inSubpixels(point.y())};
    }

    // Walks from a1 to a2 in the direction in which the line is the longer one, and follows it
    // from b1 to b2 in the other one.
    void line(Direction a, Direction b, Subpixels a1, Subpixels b1, Subpixels a2, Subpixels b2,
              QRgb colour) {
        if (a1 > a2) {
            std::swap(a1, a2);
            std::swap(b1, b2);
        }
        const Subpixels first = std::max<Subpixels>(a1 >> kSubpixelBits, 0);
        const Subpixels end = std::min<Subpixels>((a2 >> kSubpixelBits) + lineWidth_, a.count);
        const bool missesB = std::max(b1, b2) >> kSubpixelBits <= -lineWidth_ ||
                             std::min(b1, b2) >> kSubpixelBits >= b.count;
        if (first >= end || missesB) return;

        // Followed in whole numbers, but from a start that is exact however far away a1 is.
        constexpr int kFractionBits = 16;  // of a subpixel
        constexpr double kOne = 1 << kFractionBits;
        const double slope =
            b1 == b2 ? 0 : static_cast<double>(b2 - b1) / static_cast<double>(a2 - a1);
        const Subpixels ahead = (first << kSubpixelBits) + (slope > 0 ? kHalfPixel : 0) - a1;
        const double start = static_cast<double>(b1) + static_cast<double>(ahead) * slope;
        auto at = static_cast<std::int64_t>(start * kOne);
        const auto step = static_cast<std::int64_t>(slope * kOne * (1 << kSubpixelBits));
        for (Subpixels i = first; i < end; ++i, at += step) {
            const Subpixels from = at >> (kFractionBits + kSubpixelBits);
            for (Subpixels k = from; k < from + lineWidth_; ++k) {
                if (k >= 0 && k < b.count) pixels_[i * a.step + k * b.step] = colour;
            }
        }
    }

    QRgb* pixels_;
    Direction across_;
    Direction down_;
    int lineWidth_;
};

// Colours as they are painted. There are few of them, but working one out takes long.
class PaintedColours {
public:
    explicit PaintedColours(const QPalette& palette) : palette_(palette) {}

    QRgb operator[](Colour colour) {
        const auto known = std::ranges::find(known_, colour, &std::pair<Colour, QRgb>::first);
        if (known != known_.end()) return known->second;
        return known_.emplace_back(colour, painted(colour, palette_).rgb()).second;
    }

private:
    const QPalette& palette_;
    std::vector<std::pair<Colour, QRgb>> known_;
};

void drawCircle(QImage& image, QPointF centre, double radius, QRgb colour) {
    QPainter painter(&image);
    painter.setPen(QPen(QColor(colour), 1));
    painter.drawEllipse(centre, radius, radius);
}

// How a picture lies in an image: pixels of the image to a unit of the drawing, and to a pixel of
// the window.
struct Scale {
    double toUnit;
    double toPixel;
    int lineWidth() const { return std::max(1, qRound(toPixel)); }
};

void draw(QImage& image, std::span<const Primitive> primitives, const Scale& scale,
          PaintedColours& colours) {
    LineCanvas canvas(image, scale.lineWidth());
    for (const Primitive& item : primitives) {
        const QPointF first = QPointF(item.x1, item.y1) * scale.toUnit;
        const QPointF second = QPointF(item.x2, item.y2) * scale.toUnit;
        const QRgb colour = colours[item.colour];
        switch (item.kind) {
            case Primitive::Kind::Line:
                canvas.line(first, second, colour);
                break;
            case Primitive::Kind::Box:
                canvas.box(first, second, colour);
                break;
            case Primitive::Kind::Circle:
                drawCircle(image, first / scale.toPixel, second.x() / scale.toPixel, colour);
                break;
            case Primitive::Kind::Image:
                break;
        }
    }
}

// Fills what is transparent up to `width` pixels beside what is not.
void addMargin(QImage& image, int width, QRgb colour) {
    const QImage drawn = image.copy();
    const auto rowOf = [&](int y) { return reinterpret_cast<const QRgb*>(drawn.constScanLine(y)); };
    for (int y = 0; y < drawn.height(); ++y) {
        const QRgb* const row = rowOf(y);
        for (int x = 0; x < drawn.width(); ++x) {
            if (qAlpha(row[x]) == 0) continue;
            for (int j = std::max(0, y - width); j <= std::min(drawn.height() - 1, y + width);
                 ++j) {
                auto* const target = reinterpret_cast<QRgb*>(image.scanLine(j));
                const QRgb* const source = rowOf(j);
                for (int i = std::max(0, x - width); i <= std::min(drawn.width() - 1, x + width);
                     ++i) {
                    if (qAlpha(source[i]) == 0) target[i] = colour;
                }
            }
        }
    }
}

}  // namespace

void paintPrimitives(QPainter& painter, const std::vector<Primitive>& primitives,
                     double unitsPerPixel, const QPalette& palette) {
    const QPaintDevice& device = *painter.device();
    const double ratio = device.devicePixelRatioF();
    const Scale scale = {.toUnit = ratio / unitsPerPixel, .toPixel = ratio};
    PaintedColours colours(palette);
    const bool overImage =
        std::ranges::find(primitives, Primitive::Kind::Image, &Primitive::kind) != primitives.end();
    for (auto run = primitives.begin(); run != primitives.end();) {
        // Over an image those of a kind at a time, so that no margin lies over another edge.
        const auto end = std::find_if(run, primitives.end(), [&](const Primitive& item) {
            return overImage && item.kind != run->kind;
        });
        QImage layer((QSizeF(device.width(), device.height()) * ratio).toSize(),
                     QImage::Format_ARGB32_Premultiplied);
        layer.setDevicePixelRatio(ratio);
        layer.fill(Qt::transparent);
        draw(layer, {run, end}, scale, colours);
        if (overImage) {
            addMargin(layer, scale.lineWidth(),
                      palette.color(QPalette::Active, QPalette::Base).rgb());
        }
        painter.drawImage(QPointF(0, 0), layer);
        run = end;
    }
}

}  // namespace corvane
