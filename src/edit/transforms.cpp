#include "edit/transforms.h"

#include <cmath>

#include "edit/selection.h"

namespace corvane {

namespace {

// Shorter than the full constant. Kept, so that a rotation gives the same digits as ever.
constexpr double kPi = 3.14159265358;

// A result that no number can hold would be written to the model file as no number: keep the old.
void assignFinite(double& coordinate, double value) {
    if (std::isfinite(value)) coordinate = value;
}

// The slots that a rotation turns: u is the sine component, v the cosine component.
struct Plane {
    std::size_t u;
    std::size_t v;
};

Plane planeAbout(Axis axis) {
    switch (axis) {
        case Axis::X:
            return {slotOf(Axis::Y), slotOf(Axis::Z)};
        case Axis::Y:
            return {slotOf(Axis::Z), slotOf(Axis::X)};
        case Axis::Z:
            break;
    }
    return {slotOf(Axis::Y), slotOf(Axis::X)};
}

// A point with v exactly 0 counts as lying at +90 degrees whatever the sign of u.
void turn(Triple& point, Plane plane, double degrees) {
    double& u = point[plane.u];
    double& v = point[plane.v];
    const double r = std::sqrt(u * u + v * v);
    double theta = kPi / 2;
    if (v != 0) {
        theta = std::atan(u / v);
        if (v < 0) theta += kPi;
    }
    theta += degrees / 180 * kPi;
    assignFinite(u, std::sin(theta) * r);
    assignFinite(v, std::cos(theta) * r);
}

}  // namespace

void moveSelected(Geoset& geoset, const Triple& delta, const ActiveSlots& active) {
    for (VertexRecord& vertex : geoset.Vertices) {
        if (!vertex.selected) continue;
        for (std::size_t slot = 0; slot < delta.size(); ++slot) {
            if (active[slot]) assignFinite(vertex.pos[slot], vertex.pos[slot] + delta[slot]);
        }
    }
}

double scaleFactor(double a, double b) {
    double d = std::sqrt(a * a + b * b);
    d = d / 4;
    const double s = std::sqrt(d) / 12 + 1;
    return a - b < 0 ? 1 / s : s;
}

void scaleSelected(Geoset& geoset, double a, double b, const ActiveSlots& active) {
    double s = scaleFactor(a, b);
    if (!std::isfinite(s) || s == 0) s = 1;  // from a drag that is no number
    const Triple centre = selectionCentre(geoset);
    for (VertexRecord& vertex : geoset.Vertices) {
        if (!vertex.selected) continue;
        for (std::size_t slot = 0; slot < centre.size(); ++slot) {
            double& coordinate = vertex.pos[slot];
            if (!active[slot]) continue;
            assignFinite(coordinate, (coordinate - centre[slot]) * s + centre[slot]);
        }
    }
}

void rotateSelected(Geoset& geoset, double& angle, Axis axis) {
    angle /= 2;
    const Triple centre = selectionCentre(geoset);
    const Plane plane = planeAbout(axis);
    for (VertexRecord& vertex : geoset.Vertices) {
        if (!vertex.selected) continue;
        Triple pos = vertex.pos;
        for (std::size_t slot = 0; slot < centre.size(); ++slot) pos[slot] -= centre[slot];
        turn(pos, plane, angle);
        turn(vertex.normal, plane, angle);
        for (std::size_t slot = 0; slot < centre.size(); ++slot) {
            assignFinite(vertex.pos[slot], pos[slot] + centre[slot]);
        }
    }
}

}  // namespace corvane
