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

void drawPerspective(const Geoset& geoset, PerspectiveState& state, DrawingSurface& picture) {
    struct Point {
        double x = 0;
        double y = 0;
        bool visible = false;
    };
    std::vector<Point> points(geoset.Vertices.size());
    state.across.resize(geoset.Vertices.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        const VertexRecord& vertex = geoset.Vertices[i];
        const Turned turned = turn(state, vertex);
        state.across[i] = turned.across;
        const std::optional<double> height = heightAt(state, vertex, turned);
        if (!height) continue;
        const double y = picture.height() / 2 - kScale * *height;
        if (!std::isfinite(y)) continue;  // beyond all numbers
        points[i] = {picture.width() / 2 + kScale * perspHorizontal(vertex), y, true};
    }

    picture.clear();
    for (const FaceRecord& face : geoset.Faces) {
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
                    geoset.Vertices[i].selected ? kRed : kBlack);
    }
}

void turnPerspective(PerspectiveState& state, int degrees) {
    constexpr int kRevolution = 360;
    state.yaw = static_cast<std::int16_t>((state.yaw + degrees) % kRevolution);
}

void raisePerspective(PerspectiveState& state, int offset) {
    changeWithin16Bits(state.offset, offset);
}

void zoomPerspective(PerspectiveState& state, int distance) {
    changeWithin16Bits(state.distance, distance);
}

}  // namespace corvane
