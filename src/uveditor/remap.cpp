#include "uveditor/remap.h"

#include <algorithm>

namespace corvane {

namespace {

// Where the search for the extremes of a projection starts, model units.
constexpr double kRemapBound = 6400;

struct Range {
    double low = kRemapBound;
    double high = -kRemapBound;
    bool any = false;
};

template <class Visit>
void forEachSelected(const Geoset& geoset, const std::vector<bool>& selected, Visit visit) {
    const std::size_t count = std::min(geoset.Vertices.size(), selected.size());
    for (std::size_t i = 0; i < count; ++i) {
        if (selected[i]) visit(i);
    }
}

Range rangeOf(const Geoset& geoset, const std::vector<bool>& selected, Axis axis) {
    Range range;
    forEachSelected(geoset, selected, [&](std::size_t i) {
        const double c = geoset.Vertices[i].pos[slotOf(axis)];
        range.low = std::min(range.low, c);
        range.high = std::max(range.high, c);
        range.any = true;
    });
    return range;
}

}  // namespace

RemapAxes axesOf(RemapPlane plane) {
    switch (plane) {
        case RemapPlane::Top:
            return {Axis::X, Axis::Z};
        case RemapPlane::Front:
            return {Axis::X, Axis::Y};
        case RemapPlane::Left:
            break;
    }
    return {Axis::Z, Axis::Y};
}

std::vector<double> remap(const Geoset& geoset, const std::vector<bool>& selected, Axis axis) {
    std::vector<double> result(geoset.Vertices.size());
    const Range range = rangeOf(geoset, selected, axis);
    if (range.high == range.low) return result;
    forEachSelected(geoset, selected, [&](std::size_t i) {
        result[i] = (geoset.Vertices[i].pos[slotOf(axis)] - range.low) / (range.high - range.low);
    });
    return result;
}

bool hasRemapExtent(const Geoset& geoset, const std::vector<bool>& selected, Axis axis) {
    const Range range = rangeOf(geoset, selected, axis);
    return !range.any || range.high != range.low;
}

}  // namespace corvane
