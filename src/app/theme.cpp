#include "app/theme.h"

#include <cmath>

namespace corvane {

namespace {

// The share of the foreground in the colour of edges, so that vertices stand out from them.
constexpr double kEdgeShare = 0.45;
constexpr double kLeastContrast = 3.0;  // of what is drawn to what lies beside it
constexpr int kSteps = 20;              // in which a colour goes another one's way

QColor mixed(const QColor& a, const QColor& b, double shareOfA) {
    const auto part = [&](int x, int y) {
        return static_cast<int>(std::lround(x * shareOfA + y * (1 - shareOfA)));
    };
    return {part(a.red(), b.red()), part(a.green(), b.green()), part(a.blue(), b.blue())};
}

// Relative luminance, 0 to 1.
double luminance(const QColor& colour) {
    const auto linear = [](double channel) {
        return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor& a, const QColor& b) {
    const double la = luminance(a);
    const double lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

bool isDark(const QColor& base) { return luminance(base) < 0.2; }

// `colour`, or as little of the way from it to `end` as makes the least contrast to `beside`.
QColor towards(const QColor& end, const QColor& colour, const QColor& beside) {
    QColor result = colour;
    for (int step = 1; step <= kSteps && contrast(result, beside) < kLeastContrast; ++step) {
        result = mixed(end, colour, static_cast<double>(step) / kSteps);
    }
    return result;
}

// What stands out most from a palette's base.
QColor farthest(const QColor& base) { return isDark(base) ? Qt::white : Qt::black; }

QColor edgeColour(const QPalette& palette) {
    const QColor base = palette.color(QPalette::Active, QPalette::Base);
    const QColor edges = towards(farthest(base), resolved(kActiveBorder, palette), base);
    // On a ground between light and dark vertices need all the room that edges can leave them.
    return contrast(farthest(base), edges) < kLeastContrast ? towards(edges, base, base) : edges;
}

// Stands out from edges, and so from the base, too.
QColor vertexColour(const QPalette& palette) {
    const QColor base = palette.color(QPalette::Active, QPalette::Base);
    return towards(farthest(base), resolved(kForeground, palette), edgeColour(palette));
}

}  // namespace

QColor resolved(Colour colour, const QPalette& palette) {
    switch (colour) {
        case kForeground:
            return palette.color(QPalette::Active, QPalette::Text);
        case kActiveBorder:
            return mixed(palette.color(QPalette::Active, QPalette::Text),
                         palette.color(QPalette::Active, QPalette::Base), kEdgeShare);
        case kButtonFace:
            return palette.color(QPalette::Active, QPalette::Button);
        default:
            return {static_cast<int>(colour & 0xFFU), static_cast<int>((colour >> 8U) & 0xFFU),
                    static_cast<int>((colour >> 16U) & 0xFFU)};
    }
}

QColor painted(Colour colour, const QPalette& palette) {
    const QColor base = palette.color(QPalette::Active, QPalette::Base);
    const bool dark = isDark(base);
    // Black is what vertices are on a light ground. On a dark one they are as light.
    if (colour == kForeground || (dark && colour == kBlack)) return vertexColour(palette);
    if (colour == kActiveBorder) return edgeColour(palette);
    const QColor wanted = resolved(colour, palette);
    return dark ? towards(Qt::white, wanted, base) : wanted;
}

QColor textColourOn(const QColor& background) {
    return contrast(Qt::black, background) > contrast(Qt::white, background) ? Qt::black
                                                                             : Qt::white;
}

}  // namespace corvane
