#include "views/perspective_view.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace corvane {

namespace {

constexpr double kPi = 3.14159265358979;
constexpr double kEyeDistance = 10;  // model units from the eye to the turntable's axis
constexpr double kScale = 100;       // drawing units per projected unit
constexpr double kVertexBox = 10;    // half the side of a vertex's box, drawing units

void changeWithin16Bits(std::int16_t& value, int change) {
    using Limits = std::numeric_limits<std::int16_t>;
    value =
        static_cast<std::int16_t>(std::clamp<int>(value + change, Limits::min(), Limits::max()));
}

// Where the turntable puts a vertex, seen from above. Model units.
struct Turned {
    double across;
    double depth;
};

Turned turn(const PerspectiveState& state, const VertexRecord& vertex) {
    const double x = vertex.pos[slotOf(Axis::X)];
    const double z = vertex.pos[slotOf(Axis::Z)];
    const double r = std::sqrt(x * x + z * z);
    double theta = kPi / 2;
    if (x != 0) {
        theta = std::atan(z / x);
        if (x < 0) theta += kPi;
    }
    theta += state.yaw * kPi / 180;
    return {r * std::cos(theta), r * std::sin(theta)};
}

std::optional<double> heightAt(const PerspectiveState& state, const VertexRecord& vertex,
                               const Turned& turned) {
    const double depth = state.distance + turned.depth;
    const double height =
        (state.offset + vertex.pos[slotOf(Axis::Y)]) * kEyeDistance / (depth + kEyeDistance);
    if (depth + kEyeDistance == 0 || !std::isfinite(height)) return std::nullopt;
    return height;
}

}  // namespace

std::optional<double> perspVertical(const PerspectiveState& state, const VertexRecord& vertex) {
    return heightAt(state, vertex, turn(state, vertex));
}

double perspHorizontal(const VertexRecord& /*vertex*/) { return 0; }

void drawPerspective(Editor& editor) {
    DrawingSurface& picture = editor.pictures.perspective;
    const GeosetStore& store = editor.store;
    struct Point {
        double x = 0;
        double y = 0;
        bool visible = false;
    };
    std::vector<Point> points(store.Vertices.size());
    editor.perspective.across.resize(store.Vertices.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        const VertexRecord& vertex = store.Vertices[i];
        const Turned turned = turn(editor.perspective, vertex);
        editor.perspective.across[i] = turned.across;
        const std::optional<double> height = heightAt(editor.perspective, vertex, turned);
        if (!height) continue;
        const double y = picture.height() / 2 - kScale * *height;
        if (!std::isfinite(y)) continue;  // beyond all numbers
        points[i] = {picture.width() / 2 + kScale * perspHorizontal(vertex), y, true};
    }

    picture.clear();
    for (const FaceRecord& face : store.Faces) {
        for (std::size_t i = 0; i < face.corner.size(); ++i) {
            const Point& p = points[static_cast<std::size_t>(face.corner[i])];
            const Point& q = points[static_cast<std::size_t>(face.corner[(i + 1) % 3])];
            if (p.visible && q.visible) picture.line(p.x, p.y, q.x, q.y, kActiveBorder);
        }
    }
    for (std::size_t i = 0; i < points.size(); ++i) {
        const Point& p = points[i];
        if (!p.visible) continue;
        picture.box(p.x - kVertexBox, p.y - kVertexBox, p.x + kVertexBox, p.y + kVertexBox,
                    store.Vertices[i].selected ? kRed : kBlack);
    }
}

void turnPerspective(Editor& editor, int degrees) {
    constexpr int kRevolution = 360;
    editor.perspective.yaw =
        static_cast<std::int16_t>((editor.perspective.yaw + degrees) % kRevolution);
    drawPerspective(editor);
}

void raisePerspective(Editor& editor, int offset) {
    changeWithin16Bits(editor.perspective.offset, offset);
    drawPerspective(editor);
}

void zoomPerspective(Editor& editor, int distance) {
    changeWithin16Bits(editor.perspective.distance, distance);
    drawPerspective(editor);
}

}  // namespace corvane
