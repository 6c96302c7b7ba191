#include "app/picture_painter.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QLineF>
#include <cmath>
#include <limits>
#include <vector>

#include "palettes.h"

namespace corvane {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

// The parameter is the display's scale: pixels of the image to a side of a pixel of the window.
class PicturePainterTest : public testing::TestWithParam<double> {
protected:
    static double scale() { return GetParam(); }

    /// The width of a line, image pixels.
    static int lineWidth() { return scale() < 1.5 ? 1 : 2; }

    /// Paints into a picture of 209 by 201 pixels of the window, 15 units to a pixel.
    static QImage painted(const std::vector<Primitive>& primitives) {
        QImage picture((QSizeF(209, 201) * scale()).toSize(), QImage::Format_ARGB32_Premultiplied);
        picture.setDevicePixelRatio(scale());
        picture.fill(Qt::white);
        QPainter painter(&picture);
        paintPrimitives(painter, primitives, 15, lightPalette());
        return picture;
    }

    static std::vector<QPoint> pixelsOf(const QImage& picture, const QColor& colour) {
        std::vector<QPoint> found;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.pixelColor(x, y) == colour) found.emplace_back(x, y);
            }
        }
        return found;
    }

    static Primitive line(double x1, double y1, double x2, double y2, Colour colour = kRed) {
        return {x1, y1, x2, y2, colour, Primitive::Kind::Line};
    }
    static Primitive box(double x1, double y1, double x2, double y2, Colour colour = kRed) {
        return {x1, y1, x2, y2, colour, Primitive::Kind::Box};
    }

    /// A point of the drawing in image pixels.
    static QPointF inPixels(double x, double y) { return QPointF(x, y) / 15 * scale(); }

    /// How far a pixel's centre lies from a line without ends, image pixels.
    static double distance(const QPoint& pixel, QPointF from, QPointF to) {
        const QPointF along = to - from;
        const QPointF at = QPointF(pixel) + QPointF(0.5, 0.5) - from;
        return std::abs(along.x() * at.y() - along.y() * at.x()) / QLineF(from, to).length();
    }
};

TEST_P(PicturePainterTest, ALineCoversThePixelsBetweenItsEnds) {
    constexpr double kHalfPi = 1.570796326794897;
    for (int direction = 0; direction < 48; ++direction) {
        // From the middle, 60 pixels of the window long.
        const double angle = direction * kHalfPi / 12;
        const QPointF from = inPixels(1500, 1500);
        const QPointF to = inPixels(1500 + 900 * std::cos(angle), 1500 + 900 * std::sin(angle));
        const std::vector<QPoint> red = pixelsOf(
            painted({line(1500, 1500, 1500 + 900 * std::cos(angle), 1500 + 900 * std::sin(angle))}),
            Qt::red);

        const double steps =
            std::max(std::abs(to.x() - from.x()), std::abs(to.y() - from.y())) + lineWidth();
        EXPECT_NEAR(static_cast<double>(red.size()), steps * lineWidth(), 1.01 * lineWidth());
        for (const QPoint& pixel : red) {
            EXPECT_LE(distance(pixel, from, to), 1.5) << direction;
            EXPECT_LE(QLineF(QPointF(pixel), from).length(), 60 * scale() + 2) << direction;
        }
    }
}

TEST_P(PicturePainterTest, ALineIsTheSameFromEitherEnd) {
    EXPECT_EQ(painted({line(300, 450, 2700, 1200)}), painted({line(2700, 1200, 300, 450)}));
    EXPECT_EQ(painted({line(300, 450, 600, 2700)}), painted({line(600, 2700, 300, 450)}));
}

TEST_P(PicturePainterTest, ALineKeepsItsDirectionHoweverFarItGoes) {
    // Through the point (1500, 1500), two steps to the right for each one up.
    for (const double far : {1e4, 1e6, 1e7, 3e8}) {
        const QImage picture =
            painted({line(1500 - 2 * far, 1500 + far, 1500 + far, 1500 - far / 2)});
        const std::vector<QPoint> red = pixelsOf(picture, Qt::red);
        EXPECT_EQ(red.size(), static_cast<std::size_t>(picture.width() * lineWidth())) << far;
        for (const QPoint& pixel : red) {
            ASSERT_LE(distance(pixel, inPixels(1500, 1500), inPixels(1502, 1499)), 1.5) << far;
        }
    }
    for (const double far : {1e4, 1e6, 1e7, 3e8}) {
        const QImage picture =
            painted({line(1500 + far / 2, 1500 + far, 1500 - far, 1500 - 2 * far)});
        const std::vector<QPoint> red = pixelsOf(picture, Qt::red);
        EXPECT_EQ(red.size(), static_cast<std::size_t>(picture.height() * lineWidth())) << far;
        for (const QPoint& pixel : red) {
            ASSERT_LE(distance(pixel, inPixels(1500, 1500), inPixels(1501, 1502)), 1.5) << far;
        }
    }
}

TEST_P(PicturePainterTest, ABoxIsAClosedOutline) {
    // 40 by 20 pixels of the window, given by either pair of corners.
    for (const Primitive& item : {box(300, 450, 900, 750), box(900, 750, 300, 450)}) {
        const std::vector<QPoint> red = pixelsOf(painted({item}), Qt::red);
        EXPECT_NEAR(static_cast<double>(red.size()), 120 * scale() * lineWidth(), 4);
        for (const QPoint& pixel : red) {
            const double x = pixel.x() / scale();
            const double y = pixel.y() / scale();
            const bool onSide = std::min(std::abs(x - 20), std::abs(x - 60)) <= 1;
            const bool onTop = std::min(std::abs(y - 30), std::abs(y - 50)) <= 1;
            EXPECT_TRUE(onSide || onTop) << x << ' ' << y;
            EXPECT_TRUE(x >= 19 && x <= 61 && y >= 29 && y <= 51) << x << ' ' << y;
        }
    }
}

TEST_P(PicturePainterTest, ABoxThatIsLargerThanThePictureShowsWhatCrossesIt) {
    const QImage picture = painted({box(-1e6, -1e6, 1500, 750)});
    for (const QPoint& pixel : pixelsOf(picture, Qt::red)) {
        EXPECT_TRUE(std::abs(pixel.x() / scale() - 100) <= 1 ||
                    std::abs(pixel.y() / scale() - 50) <= 1)
            << pixel.x() << ' ' << pixel.y();
    }
    EXPECT_NEAR(static_cast<double>(pixelsOf(picture, Qt::red).size()), 150 * scale() * lineWidth(),
                4);
}

TEST_P(PicturePainterTest, ACircleIsAnOutlineRoundItsCentre) {
    const QImage picture = painted({{1500, 1500, 600, 0, kBlue, Primitive::Kind::Circle}});
    const std::vector<QPoint> blue = pixelsOf(picture, Qt::blue);
    EXPECT_GT(blue.size(), 200U);
    for (const QPoint& pixel : blue) {
        EXPECT_NEAR(QLineF(QPointF(pixel), inPixels(1500, 1500)).length(), 40 * scale(), 2);
    }
}

TEST_P(PicturePainterTest, WhatIsDrawnLaterIsOnTop) {
    const std::vector<Primitive> items = {
        box(885, 585, 915, 615, kRed),
        line(0, 600, 3135, 600, kBlue),
        line(900, 0, 900, 3015, kGreen),
        {900, 600, 300, 0, kNormalColour, Primitive::Kind::Circle}};
    const QImage picture = painted(items);
    // Nothing stands over the circle; the lines cross everything before them.
    EXPECT_EQ(pixelsOf(picture, QColor(128, 128, 255)),
              pixelsOf(painted({items[3]}), QColor(128, 128, 255)));
    EXPECT_EQ(pixelsOf(painted({items[0], items[1], items[2]}), Qt::green),
              pixelsOf(painted({items[2]}), Qt::green));
    EXPECT_EQ(pixelsOf(painted({items[0], items[1]}), Qt::blue),
              pixelsOf(painted({items[1]}), Qt::blue));
    EXPECT_LT(pixelsOf(painted({items[0], items[1]}), Qt::red).size(),
              pixelsOf(painted({items[0]}), Qt::red).size());
}

TEST_P(PicturePainterTest, WhatIsBeyondThePictureOrNoPlaceAtAllPaintsNothing) {
    const QImage empty = painted({});
    EXPECT_EQ(pixelsOf(empty, Qt::white).size(),
              static_cast<std::size_t>(empty.width() * empty.height()));
    EXPECT_EQ(painted({line(-30, 0, -30, 3000), line(0, -30, 3000, -30), line(3165, 0, 3165, 3000),
                       line(0, 3045, 3000, 3045), line(-1500, 600, 600, -1500),
                       box(-900, -900, -60, -60), box(4000, 4000, 5000, 5000)}),
              empty);
    EXPECT_EQ(painted({line(1500, kNaN, 1500, kNaN), line(1500, kInfinity, 1500, kInfinity),
                       line(1500, -kInfinity, 1500, -kInfinity), box(kNaN, kNaN, kNaN, kNaN),
                       box(1490, -kInfinity, 1510, -kInfinity)}),
              empty);
}

INSTANTIATE_TEST_SUITE_P(DisplayScales, PicturePainterTest, testing::Values(1.0, 1.5, 2.0));

}  // namespace
}  // namespace corvane
