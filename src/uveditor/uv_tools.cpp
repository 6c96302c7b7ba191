#include "uveditor/uv_tools.h"

#include <cmath>
#include <utility>

namespace corvane {

namespace {

// Shorter than the full constant. Kept, so that a rotation gives the same digits as ever.
constexpr double kPi = 3.1415926;
constexpr double kRadiansPerUnit = 1.5;  // of a vertical drag

// Applies a change to the coordinates of every selected vertex.
template <class Change>
void forEachSelected(UVData& data, Change change) {
    for (std::size_t i = 0; i < data.u.size(); ++i) {
        if (data.selected[i]) change(data.u[i], data.v[i]);
    }
}

struct Mean {
    double u = 0;
    double v = 0;
};

// Of the selected vertices, deleted ones included; 0 where there are none.
Mean meanOfSelection(const UVData& data) {
    Mean sum;
    int count = 0;
    for (std::size_t i = 0; i < data.u.size(); ++i) {
        if (!data.selected[i]) continue;
        sum.u += data.u[i];
        sum.v += data.v[i];
        ++count;
    }
    if (count == 0) return {};
    return {sum.u / count, sum.v / count};
}

}  // namespace

void assignCoordinate(UVState& uv, double& coordinate, double value) {
    if (!std::isfinite(value) || value == coordinate) return;
    coordinate = value;
    uv.unsaved = true;
}

void uvMove(UVState& uv, double du, double dv) {
    forEachSelected(uv.data, [&](double& u, double& v) {
        if (uv.xEnabled) assignCoordinate(uv, u, u + du);
        if (uv.yEnabled) assignCoordinate(uv, v, v + dv);
    });
}

void uvRotate(UVState& uv, double angle) {
    const Mean centre = meanOfSelection(uv.data);
    forEachSelected(uv.data, [&](double& u, double& v) {
        const double a = u - centre.u;
        const double b = v - centre.v;
        const double r = std::sqrt(a * a + b * b);
        // A vertex straight above the centre counts as lying below it.
        double theta = a == 0 ? kPi / 2 : std::atan(b / a);
        if (a < 0) theta += kPi;
        theta += angle;
        assignCoordinate(uv, u, r * std::cos(theta) + centre.u);
        assignCoordinate(uv, v, r * std::sin(theta) + centre.v);
    });
}

void uvScale(UVState& uv, double factor) {
    const Mean centre = meanOfSelection(uv.data);
    forEachSelected(uv.data, [&](double& u, double& v) {
        if (uv.xEnabled) assignCoordinate(uv, u, (u - centre.u) * factor + centre.u);
        if (uv.yEnabled) assignCoordinate(uv, v, (v - centre.v) * factor + centre.v);
    });
}

void uvSelectByBox(UVState& uv) {
    if (uv.uStart > uv.uEnd) std::swap(uv.uStart, uv.uEnd);
    if (uv.vStart > uv.vEnd) std::swap(uv.vStart, uv.vEnd);
    UVData& data = uv.data;
    for (std::size_t i = 0; i < data.u.size(); ++i) {
        const bool inside = uv.uStart < data.u[i] && data.u[i] < uv.uEnd && uv.vStart < data.v[i] &&
                            data.v[i] < uv.vEnd;
        switch (uv.selectMode) {
            case SelectMode::Select:
                data.selected[i] = inside;
                break;
            case SelectMode::Add:
                if (inside) data.selected[i] = true;
                break;
            case SelectMode::Deselect:
                if (inside) data.selected[i] = false;
                break;
        }
    }
}

void uvTransform(UVState& uv) {
    const double du = uv.uEnd - uv.uStart;
    const double dv = uv.vEnd - uv.vStart;
    switch (uv.transformMode) {
        case TransformMode::Move:
            uvMove(uv, du, dv);
            break;
        case TransformMode::Rotate:
            uvRotate(uv, dv * kRadiansPerUnit);
            break;
        case TransformMode::Scale: {
            const double d = dv + du;
            uvScale(uv, d >= 0 ? d + 1 : 1 / (std::fabs(d) + 1));
            break;
        }
        case TransformMode::Extrude:
            break;
    }
}

}  // namespace corvane
