#include "uveditor/uv_view.h"

#include <algorithm>
#include <optional>

namespace corvane {

namespace {

constexpr double kVertexBox = 2;  // half the side of a vertex's box, pixels
constexpr double kZoomInFactor = 1.25;
constexpr double kZoomOutFactor = 0.8;
constexpr double kZoomInLimit = 10;    // no zooming in from here on
constexpr double kZoomOutLimit = 0.5;  // no zooming out from here on
constexpr int kReadoutDecimals = 6;

void scale(UVState& uv, double factor) {
    uv.zoom *= factor;
    uv.panX = roundToInt32(uv.panX * factor);
    uv.panY = roundToInt32(uv.panY * factor);
}

// The picture covers the unit square.
void paintBackground(UVState& uv) {
    if (!uv.imageLoaded) return;
    const double width = uv.picture.width();
    const double height = uv.picture.height();
    uv.picture.image(uv.panX - (uv.zoom - 1) * width / 2, uv.panY - (uv.zoom - 1) * height / 2,
                     width * uv.zoom, height * uv.zoom);
}

}  // namespace

double viewX(const UVState& uv, double u) {
    const double width = uv.picture.width();
    return (width * u - width / 2) * uv.zoom + width / 2 + uv.panX;
}

double viewY(const UVState& uv, double v) {
    const double height = uv.picture.height();
    return (height * v - height / 2) * uv.zoom + height / 2 + uv.panY;
}

double textureU(const UVState& uv, int x) {
    const double width = std::max(uv.picture.width(), 1.0);
    return ((static_cast<double>(x) - uv.panX) / width - 0.5) / uv.zoom + 0.5;
}

double textureV(const UVState& uv, int y) {
    const double height = std::max(uv.picture.height(), 1.0);
    return ((static_cast<double>(y) - uv.panY) / height - 0.5) / uv.zoom + 0.5;
}

void drawTextureView(UVState& uv) {
    if (!uv.dataReceived) return;
    const UVData& data = uv.data;
    struct Point {
        double x;
        double y;
    };
    std::vector<Point> points(data.u.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        points[i] = {viewX(uv, data.u[i]), viewY(uv, data.v[i])};
    }

    uv.picture.clear();
    paintBackground(uv);
    const auto rounded = [](double value) { return static_cast<double>(roundToInt32(value)); };
    const auto isHidden = [&](std::int16_t corner) {
        const auto i = static_cast<std::size_t>(corner);
        return i >= points.size() || data.deleted[i];
    };
    for (const auto& face : data.faces) {
        if (std::ranges::any_of(face, isHidden)) continue;
        for (std::size_t k = 0; k < face.size(); ++k) {
            const Point& p = points[static_cast<std::size_t>(face[k])];
            const Point& q = points[static_cast<std::size_t>(face[(k + 1) % face.size()])];
            uv.picture.line(rounded(p.x), rounded(p.y), rounded(q.x), rounded(q.y), kActiveBorder);
        }
    }
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (data.deleted[i]) continue;
        const auto [x, y] = points[i];
        uv.picture.box(x - kVertexBox, y - kVertexBox, x + kVertexBox, y + kVertexBox,
                       data.selected[i] ? kRed : kBlack);
    }
}

void zoomIn(UVState& uv) {
    if (uv.zoom < kZoomInLimit) scale(uv, kZoomInFactor);
}

void zoomOut(UVState& uv) {
    if (uv.zoom > kZoomOutLimit) scale(uv, kZoomOutFactor);
}

void pan(UVState& uv, int dx, int dy) {
    uv.panX = roundToInt32(static_cast<double>(uv.panX) + dx);
    uv.panY = roundToInt32(static_cast<double>(uv.panY) + dy);
}

std::string readoutText(double coordinate, const UserNumberFormat& format) {
    return formatUserNumber(roundToDecimals(coordinate, kReadoutDecimals), format);
}

}  // namespace corvane
