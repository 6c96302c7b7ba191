// Vertices and edges can be told from each other and from the ground: by the colours that are
// painted, not by those that are asked for.
#include <gtest/gtest.h>

#include <QImage>
#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "app/picture_painter.h"
#include "app/theme.h"
#include "palettes.h"

namespace corvane {
namespace {

constexpr double kLeast = 3.0;  // what guidelines ask of lines and marks

/// Contrast as accessibility guidelines define it: 1 to 21.
double contrast(const QColor& a, const QColor& b) {
    const auto luminance = [](const QColor& colour) {
        const auto linear = [](int channel) {
            const double share = channel / 255.0;
            return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(colour.red()) + 0.7152 * linear(colour.green()) +
               0.0722 * linear(colour.blue());
    };
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

struct Theme {
    const char* name;
    QColor text;
    QColor base;
};

/// Those of desktops as they come, and some that are paler than they should be.
const std::vector<Theme>& themes() {
    static const std::vector<Theme> all = {
        {"black on white", Qt::black, Qt::white},
        {"grey on white", QColor(0x31, 0x36, 0x3B), QColor(0xFC, 0xFC, 0xFC)},
        {"pale on white", QColor(0x77, 0x77, 0x77), Qt::white},
        {"on cream", QColor(0x65, 0x7B, 0x83), QColor(0xFD, 0xF6, 0xE3)},
        {"light on dark", QColor(0xEE, 0xEE, 0xEE), QColor(0x1E, 0x1E, 0x1E)},
        {"white on black", Qt::white, Qt::black},
        {"on blue grey", QColor(0xFC, 0xFC, 0xFC), QColor(0x23, 0x26, 0x29)},
        {"on a lighter one", QColor(0xEF, 0xF0, 0xF1), QColor(0x31, 0x36, 0x3B)},
        {"pale on dark", QColor(0x83, 0x94, 0x96), QColor(0x00, 0x2B, 0x36)},
        {"on a slate grey", QColor(0xD3, 0xDA, 0xE3), QColor(0x40, 0x45, 0x52)},
        {"white on grey", Qt::white, QColor(0x40, 0x40, 0x40)},
    };
    return all;
}

QPalette paletteOf(const Theme& theme) {
    QPalette palette = lightPalette();
    palette.setColor(QPalette::Base, theme.base);
    palette.setColor(QPalette::Text, theme.text);
    return palette;
}

TEST(ContrastTest, VerticesEdgesAndGroundStandOutFromEachOtherInEveryTheme) {
    for (const Theme& theme : themes()) {
        const QPalette palette = paletteOf(theme);
        const QColor edges = painted(kActiveBorder, palette);
        EXPECT_GE(contrast(edges, theme.base), kLeast) << theme.name;
        for (const Colour vertices : {kForeground, kBlack}) {
            const QColor colour = painted(vertices, palette);
            EXPECT_GE(contrast(colour, theme.base), kLeast) << theme.name << ' ' << vertices;
            EXPECT_GE(contrast(colour, edges), kLeast) << theme.name << ' ' << vertices;
        }
    }
}

TEST(ContrastTest, SelectedVerticesStandOutFromTheGroundAndFromTheOthers) {
    for (const Theme& theme : themes()) {
        const QPalette palette = paletteOf(theme);
        const QColor red = painted(kRed, palette);
        EXPECT_GE(contrast(red, theme.base), kLeast) << theme.name;
        EXPECT_EQ(red.hue(), 0) << theme.name;
        for (const Colour other : {kForeground, kBlack, kActiveBorder}) {
            EXPECT_LT(painted(other, palette).hsvSaturation(), 200) << theme.name;
        }
    }
}

// A falling edge from corner to corner, with a vertex in its middle and a selected one beside it.
QImage paintedOver(const QPalette& palette, const QImage& ground, bool withImage) {
    QImage picture = ground;
    std::vector<Primitive> items = {{0, 0, 60, 60, kActiveBorder, Primitive::Kind::Line},
                                    {28, 28, 32, 32, kBlack, Primitive::Kind::Box},
                                    {8, 40, 12, 44, kRed, Primitive::Kind::Box}};
    if (withImage) {
        items.insert(items.begin(), {0, 0, 61, 61, kBlack, Primitive::Kind::Image});
    }
    QPainter painter(&picture);
    paintPrimitives(painter, items, 1, palette);
    return picture;
}

QImage plainGround(const QColor& colour) {
    QImage image(61, 61, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

TEST(ContrastTest, WithoutAnImageNothingLiesBesideALine) {
    for (const Theme& theme : themes()) {
        const QPalette palette = paletteOf(theme);
        const QImage image = paintedOver(palette, plainGround(Qt::magenta), false);
        EXPECT_EQ(image.pixelColor(10, 10), painted(kActiveBorder, palette)) << theme.name;
        EXPECT_EQ(image.pixelColor(12, 10), QColor(Qt::magenta)) << theme.name;
        EXPECT_EQ(image.pixelColor(28, 30), painted(kBlack, palette)) << theme.name;
        EXPECT_EQ(image.pixelColor(29, 31), QColor(Qt::magenta)) << theme.name;
    }
}

TEST(ContrastTest, OverAnImageOfAnyColourEdgesAndVerticesHaveAMarginOfTheGround) {
    for (const Theme& theme : themes()) {
        const QPalette palette = paletteOf(theme);
        for (const QColor& colour : {QColor(Qt::black), QColor(Qt::white), QColor(140, 140, 140),
                                     QColor(124, 124, 124), QColor(Qt::red)}) {
            const QImage image = paintedOver(palette, plainGround(colour), true);
            EXPECT_EQ(image.pixelColor(10, 10), painted(kActiveBorder, palette)) << theme.name;
            EXPECT_EQ(image.pixelColor(11, 10), theme.base) << theme.name;
            EXPECT_EQ(image.pixelColor(10, 11), theme.base) << theme.name;
            EXPECT_EQ(image.pixelColor(13, 10), colour) << theme.name;
            for (const QPoint& side : {QPoint(28, 30), QPoint(32, 30), QPoint(30, 28)}) {
                EXPECT_EQ(image.pixelColor(side), painted(kBlack, palette)) << theme.name;
            }
            EXPECT_EQ(image.pixelColor(8, 42), painted(kRed, palette)) << theme.name;
            // On both sides of a vertex's outline, over the edge, too; and no further.
            for (const QPoint& beside : {QPoint(27, 30), QPoint(29, 30), QPoint(30, 33),
                                         QPoint(33, 33), QPoint(7, 42), QPoint(9, 42)}) {
                EXPECT_EQ(image.pixelColor(beside), theme.base) << theme.name;
            }
            EXPECT_EQ(image.pixelColor(26, 30), colour) << theme.name;
            EXPECT_EQ(image.pixelColor(6, 42), colour) << theme.name;
        }
    }
}

TEST(ContrastTest, TheMarginOfAnEdgeLiesOverNoOtherEdge) {
    const QPalette palette = lightPalette();
    QImage picture = plainGround(Qt::black);
    QPainter painter(&picture);
    paintPrimitives(painter,
                    {{0, 0, 61, 61, kBlack, Primitive::Kind::Image},
                     {0, 30, 60, 30, kActiveBorder, Primitive::Kind::Line},
                     {30, 0, 30, 60, kActiveBorder, Primitive::Kind::Line}},
                    1, palette);
    for (int i = 1; i < 60; ++i) {
        EXPECT_EQ(picture.pixelColor(i, 30), painted(kActiveBorder, palette)) << i;
        EXPECT_EQ(picture.pixelColor(30, i), painted(kActiveBorder, palette)) << i;
    }
}

}  // namespace
}  // namespace corvane
