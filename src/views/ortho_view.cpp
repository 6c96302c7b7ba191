#include "views/ortho_view.h"

#include <algorithm>
#include <vector>

#include "base/numbers.h"

namespace corvane {

namespace {

// Drawing units.
constexpr double kVertexBox = 10;      // half the side of a vertex's box
constexpr double kNormalLength = 150;  // of a normal of length 1, at any zoom
constexpr double kMarkerRadius = 60;
// Model units.
constexpr double kAxisMarkLength = 10;

Colour colourOf(Axis axis) {
    switch (axis) {
        case Axis::X:
            return kRed;
        case Axis::Y:
            return kBlue;
        case Axis::Z:
            break;
    }
    return kGreen;
}

// One drawing of one view.
struct Drawing {
    const Scene& scene;
    DrawingSurface& surface;
    ViewAxes axes;
    const ViewState& view;
    double width = surface.width();
    double height = surface.height();

    ScreenPoint project(const Triple& point) const {
        return corvane::project(point[slotOf(axes.horizontal)], point[slotOf(axes.vertical)], width,
                                height, view);
    }

    void axisMarks() const {
        const double x = width / 2 + view.panX;
        const double y = height / 2 + view.panY;
        const double length = view.zoom * kAxisMarkLength;
        surface.line(x, y, x, height / 2 - length + view.panY, colourOf(axes.vertical));
        surface.line(x, y, width / 2 + length + view.panX, y, colourOf(axes.horizontal));
    }

    void faces(const std::vector<ScreenPoint>& points) const {
        const Geoset& geoset = scene.geoset;
        for (const FaceRecord& face : geoset.Faces) {
            if (face.deleted) continue;
            const auto [a, b, c] = face.corner;
            if (geoset.vertexAt(a).deleted || geoset.vertexAt(b).deleted ||
                geoset.vertexAt(c).deleted) {
                continue;
            }
            edge(points, a, b);
            edge(points, b, c);
            edge(points, c, a);
        }
    }

    void edge(const std::vector<ScreenPoint>& points, std::int16_t from, std::int16_t to) const {
        const ScreenPoint& p = points[static_cast<std::size_t>(from)];
        const ScreenPoint& q = points[static_cast<std::size_t>(to)];
        surface.line(p.x, p.y, q.x, q.y, kActiveBorder);
    }

    void vertices(const std::vector<ScreenPoint>& points) const {
        for (std::size_t i = 0; i < points.size(); ++i) {
            const VertexRecord& vertex = scene.geoset.Vertices[i];
            if (vertex.deleted) continue;
            const auto [x, y] = points[i];
            surface.box(x - kVertexBox, y - kVertexBox, x + kVertexBox, y + kVertexBox,
                        vertex.selected ? kRed : kForeground);
            if (!scene.showNormals) continue;
            surface.line(x, y, x + kNormalLength * vertex.normal[slotOf(axes.horizontal)],
                         y - kNormalLength * vertex.normal[slotOf(axes.vertical)], kNormalColour);
        }
    }

    void markers() const {
        for (const MarkerRecord& marker : scene.markers) {
            if (!marker.used) continue;
            const auto [x, y] = project(marker.pos);
            surface.line(x - kMarkerRadius, y, x + kMarkerRadius, y, kBlue);
            surface.line(x, y - kMarkerRadius, x, y + kMarkerRadius, kBlue);
            surface.circle(x, y, kMarkerRadius, kBlue);
        }
    }
};

}  // namespace

ScreenPoint project(double h, double v, double width, double height, const ViewState& view) {
    return {static_cast<double>(roundToInt32(width / 2 + h * view.zoom)) + view.panX,
            static_cast<double>(roundToInt32(height / 2 - v * view.zoom)) + view.panY};
}

void drawView(const Scene& scene, DrawingSurface& drawTo, ViewAxes axes, const ViewState& view) {
    const Drawing drawing{scene, drawTo, axes, view};
    const std::vector<VertexRecord>& vertices = scene.geoset.Vertices;
    std::vector<ScreenPoint> points(vertices.size());
    std::ranges::transform(vertices, points.begin(),
                           [&](const VertexRecord& vertex) { return drawing.project(vertex.pos); });

    drawTo.clear();
    drawing.axisMarks();
    drawing.faces(points);
    drawing.vertices(points);
    drawing.markers();
}

}  // namespace corvane
