#include "views/ortho_view.h"

#include <algorithm>
#include <vector>

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
    const Editor& editor;
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
        const GeosetStore& store = editor.store;
        for (const FaceRecord& face : store.Faces) {
            if (face.deleted) continue;
            const auto [a, b, c] = face.corner;
            if (store.vertexAt(a).deleted || store.vertexAt(b).deleted ||
                store.vertexAt(c).deleted) {
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
            const VertexRecord& vertex = editor.store.Vertices[i];
            if (vertex.deleted) continue;
            const auto [x, y] = points[i];
            surface.box(x - kVertexBox, y - kVertexBox, x + kVertexBox, y + kVertexBox,
                        vertex.selected ? kRed : kForeground);
            if (!editor.modes.showNormals) continue;
            surface.line(x, y, x + kNormalLength * vertex.normal[slotOf(axes.horizontal)],
                         y - kNormalLength * vertex.normal[slotOf(axes.vertical)], kNormalColour);
        }
    }

    void markers() const {
        for (const MarkerRecord& marker : editor.markers) {
            if (!marker.used) continue;
            const auto [x, y] = project(marker.pos);
            surface.line(x - kMarkerRadius, y, x + kMarkerRadius, y, kBlue);
            surface.line(x, y - kMarkerRadius, x, y + kMarkerRadius, kBlue);
            surface.circle(x, y, kMarkerRadius, kBlue);
        }
    }
};

DrawingSurface& pictureOf(const Editor& editor, View view) {
    switch (view) {
        case View::Front:
            return editor.pictures.front;
        case View::Top:
            return editor.pictures.top;
        case View::Left:
            break;
    }
    return editor.pictures.left;
}

}  // namespace

ScreenPoint project(double h, double v, double width, double height, const ViewState& view) {
    return {static_cast<double>(roundToInt32(width / 2 + h * view.zoom)) + view.panX,
            static_cast<double>(roundToInt32(height / 2 - v * view.zoom)) + view.panY};
}

void updateView(const Editor& editor, DrawingSurface& drawTo, ViewAxes axes,
                const ViewState& view) {
    const Drawing drawing{editor, drawTo, axes, view};
    std::vector<ScreenPoint> points(editor.store.Vertices.size());
    std::ranges::transform(editor.store.Vertices, points.begin(),
                           [&](const VertexRecord& vertex) { return drawing.project(vertex.pos); });

    drawTo.clear();
    drawing.axisMarks();
    drawing.faces(points);
    drawing.vertices(points);
    drawing.markers();
}

void updateView(Editor& editor, View view) {
    updateView(editor, pictureOf(editor, view), axesOf(view), editor.views[view]);
}

void redrawAll(Editor& editor) {
    if (!editor.store.modelLoaded) return;
    for (const View view : kViews) updateView(editor, view);
}

}  // namespace corvane
