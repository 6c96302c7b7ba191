#include "app/theme.h"

#include <cmath>

namespace corvane {

namespace {

// The share of the foreground in the colour of edges, so that vertices stand out from them.
constexpr double kEdgeShare = 0.45;
constexpr double kLeastContrast = 3.0;  // to the background, for lines on a dark theme

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
    constexpr double kWhiteShareStep = 0.1;
    const QColor base = palette.color(QPalette::Active, QPalette::Base);
    const QColor wanted = resolved(colour, palette);
    const bool dark = luminance(base) < 0.2;
    QColor result = wanted;
    for (double white = 0; dark && white <= 1 && contrast(result, base) < kLeastContrast;
         white += kWhiteShareStep) {
        result = mixed(Qt::white, wanted, white);
    }
    return result;
}

QColor textColourOn(const QColor& background) {
    return contrast(Qt::black, background) > contrast(Qt::white, background) ? Qt::black
                                                                             : Qt::white;
}

}  // namespace corvane
