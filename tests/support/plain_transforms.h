// Transforms and placements in their plainest form, step by step in the order in which their
// numbers are defined to be worked out. See plain_twins.h.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "base/numbers.h"
#include "plain_twins.h"

namespace corvane::plain {

inline Triple selectionCentres(const Geoset& mesh) {
    return {selectionCentre(mesh, 0), selectionCentre(mesh, 1), selectionCentre(mesh, 2)};
}

inline void moveSelection(Geoset& mesh, const Triple& delta, const std::array<bool, 3>& active) {
    for (int i = 1; i <= vertexCount(mesh); ++i) {
        if (!vertex(mesh, i).selected) continue;
        Triple& pos = vertex(mesh, i).pos;
        if (active[0]) pos[0] = pos[0] + delta[0];
        if (active[1]) pos[1] = pos[1] + delta[1];
        if (active[2]) pos[2] = pos[2] + delta[2];
    }
}

inline void scaleSelection(Geoset& mesh, double a, double b, const std::array<bool, 3>& active) {
    double d = std::sqrt(a * a + b * b);
    d = d / 4;
    double s = std::sqrt(d) / 12 + 1;
    if (a - b < 0) s = 1 / s;
    const Triple c = selectionCentres(mesh);
    for (int i = 1; i <= vertexCount(mesh); ++i) {
        if (!vertex(mesh, i).selected) continue;
        Triple& pos = vertex(mesh, i).pos;
        if (active[0]) pos[0] = (pos[0] - c[0]) * s + c[0];
        if (active[1]) pos[1] = (pos[1] - c[1]) * s + c[1];
        if (active[2]) pos[2] = (pos[2] - c[2]) * s + c[2];
    }
}

inline void planarStep(double& u, double& v, double angle) {
    constexpr double kHalfTurn = 3.14159265358;
    const double r = std::sqrt(u * u + v * v);
    double theta = 0;
    if (v == 0) {
        theta = kHalfTurn / 2;
    } else {
        theta = std::atan(u / v);
        if (v < 0) theta = theta + kHalfTurn;
    }
    theta = theta + angle / 180 * kHalfTurn;
    u = std::sin(theta) * r;
    v = std::cos(theta) * r;
}

/// `axis` is 'x', 'y' or 'z'.
inline void rotateSelection(Geoset& mesh, double angle, char axis) {
    angle = angle / 2;
    const Triple c = selectionCentres(mesh);
    for (int i = 1; i <= vertexCount(mesh); ++i) {
        if (!vertex(mesh, i).selected) continue;
        Triple& pos = vertex(mesh, i).pos;
        Triple& normal = vertex(mesh, i).normal;
        for (std::size_t slot = 0; slot < 3; ++slot) pos[slot] = pos[slot] - c[slot];
        if (axis == 'x') {
            planarStep(pos[1], pos[2], angle);
            planarStep(normal[1], normal[2], angle);
        } else if (axis == 'y') {
            planarStep(pos[2], pos[0], angle);
            planarStep(normal[2], normal[0], angle);
        } else {
            planarStep(pos[1], pos[0], angle);
            planarStep(normal[1], normal[0], angle);
        }
        for (std::size_t slot = 0; slot < 3; ++slot) pos[slot] = pos[slot] + c[slot];
    }
}

inline void mirrorSelection(Geoset& mesh, std::size_t slot) {
    const double c = selectionCentre(mesh, slot);
    for (int i = 1; i <= vertexCount(mesh); ++i) {
        if (!vertex(mesh, i).selected) continue;
        vertex(mesh, i).pos[slot] = 2 * c - vertex(mesh, i).pos[slot];
        vertex(mesh, i).normal[slot] = -vertex(mesh, i).normal[slot];
    }
}

inline void alignSelection(Geoset& mesh, std::size_t slot) {
    const double c = selectionCentre(mesh, slot);
    for (int i = 1; i <= vertexCount(mesh); ++i) {
        if (vertex(mesh, i).selected) vertex(mesh, i).pos[slot] = c;
    }
}

inline void placeSelection(Geoset& mesh, const Triple& place) {
    for (int i = 1; i <= vertexCount(mesh); ++i) {
        if (!vertex(mesh, i).selected) continue;
        vertex(mesh, i).pos[0] = place[0];
        vertex(mesh, i).pos[1] = place[1];
        vertex(mesh, i).pos[2] = place[2];
    }
}

inline void snapSelection(Geoset& mesh) { placeSelection(mesh, selectionCentres(mesh)); }

inline void snapNormals(Geoset& mesh) {
    if (numSelVerts(mesh) == 0) return;
    Triple s = {0, 0, 0};
    for (int i = 1; i <= vertexCount(mesh); ++i) {
        if (!vertex(mesh, i).selected) continue;
        s[0] = s[0] + vertex(mesh, i).normal[0];
        s[1] = s[1] + vertex(mesh, i).normal[1];
        s[2] = s[2] + vertex(mesh, i).normal[2];
    }
    const double l = std::sqrt(s[0] * s[0] + s[1] * s[1] + s[2] * s[2]);
    for (int i = 1; i <= vertexCount(mesh); ++i) {
        if (vertex(mesh, i).selected) vertex(mesh, i).normal = {s[0] / l, s[1] / l, s[2] / l};
    }
}

/// The text of the centre, in the file's order.
inline std::string centreOfMass(const Geoset& mesh) {
    const auto number = [&](std::size_t slot) {
        return formatNumber(roundToDecimals(selectionCentre(mesh, slot), 6));
    };
    return "{ " + number(2) + ", " + number(0) + ", " + number(1) + " }";
}

/// Texture coordinates, counted from 1 as vertices are.
using List = std::vector<double>;

inline double& at(List& list, int i) { return list.at(static_cast<std::size_t>(i) - 1); }
inline bool isSelected(const std::vector<bool>& selected, int i) {
    return selected.at(static_cast<std::size_t>(i) - 1);
}

inline double meanOf(const List& list, const std::vector<bool>& selected) {
    double sum = 0;
    int count = 0;
    for (int i = 1; i <= static_cast<int>(list.size()); ++i) {
        if (!isSelected(selected, i)) continue;
        sum = sum + list[static_cast<std::size_t>(i) - 1];
        count = count + 1;
    }
    if (count == 0) return 0;
    return sum / count;
}

inline void uvMove(List& u, List& v, const std::vector<bool>& selected, double du, double dv,
                   const std::array<bool, 2>& enabled) {
    for (int i = 1; i <= static_cast<int>(u.size()); ++i) {
        if (!isSelected(selected, i)) continue;
        if (enabled[0]) at(u, i) = at(u, i) + du;
        if (enabled[1]) at(v, i) = at(v, i) + dv;
    }
}

inline void uvScale(List& u, List& v, const std::vector<bool>& selected, double factor,
                    const std::array<bool, 2>& enabled) {
    const double cu = meanOf(u, selected);
    const double cv = meanOf(v, selected);
    for (int i = 1; i <= static_cast<int>(u.size()); ++i) {
        if (!isSelected(selected, i)) continue;
        if (enabled[0]) at(u, i) = (at(u, i) - cu) * factor + cu;
        if (enabled[1]) at(v, i) = (at(v, i) - cv) * factor + cv;
    }
}

inline void uvRotate(List& u, List& v, const std::vector<bool>& selected, double angle) {
    constexpr double kHalfTurn = 3.1415926;
    const double cu = meanOf(u, selected);
    const double cv = meanOf(v, selected);
    for (int i = 1; i <= static_cast<int>(u.size()); ++i) {
        if (!isSelected(selected, i)) continue;
        const double a = at(u, i) - cu;
        const double b = at(v, i) - cv;
        const double r = std::sqrt(a * a + b * b);
        double theta = 0;
        if (a == 0) {
            theta = kHalfTurn / 2;
        } else {
            theta = std::atan(b / a);
        }
        if (a < 0) theta = theta + kHalfTurn;
        theta = theta + angle;
        at(u, i) = r * std::cos(theta) + cu;
        at(v, i) = r * std::sin(theta) + cv;
    }
}

/// One axis of a remap, for each vertex of the mesh; nothing where there is no extent to stretch.
inline List remap(const Geoset& mesh, const std::vector<bool>& selected, std::size_t slot) {
    List result(mesh.Vertices.size(), 0.0);
    double low = 6400;
    double high = -6400;
    for (int i = 1; i <= vertexCount(mesh); ++i) {
        if (!isSelected(selected, i)) continue;
        const double c = vertex(mesh, i).pos[slot];
        if (c < low) low = c;
        if (c > high) high = c;
    }
    if (high == low) return {};
    for (int i = 1; i <= vertexCount(mesh); ++i) {
        if (isSelected(selected, i))
            at(result, i) = (vertex(mesh, i).pos[slot] - low) / (high - low);
    }
    return result;
}

}  // namespace corvane::plain
