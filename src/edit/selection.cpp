#include "edit/selection.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace corvane {

int countSelectedVertices(const Geoset& geoset) {
    return static_cast<int>(std::ranges::count_if(geoset.Vertices, &VertexRecord::selected));
}

bool hasSelectedCorners(const Geoset& geoset, const FaceRecord& face) {
    return std::ranges::all_of(
        face.corner, [&](std::int16_t corner) { return geoset.vertexAt(corner).selected; });
}

int countSelectedFaces(const Geoset& geoset) {
    return static_cast<int>(std::ranges::count_if(
        geoset.Faces, [&](const FaceRecord& face) { return hasSelectedCorners(geoset, face); }));
}

double selectionCentre(const Geoset& geoset, Axis axis) {
    const std::size_t slot = slotOf(axis);
    int count = 0;
    double sum = 0;
    for (const VertexRecord& vertex : geoset.Vertices) {
        if (!vertex.selected || vertex.deleted) continue;
        ++count;
        sum += vertex.pos[slot];
    }
    if (count == 0) return 0;
    if (std::isfinite(sum)) return sum / count;
    // So far out that the sum is no number; the mean still is one.
    double mean = 0;
    for (const VertexRecord& vertex : geoset.Vertices) {
        if (vertex.selected && !vertex.deleted) mean += vertex.pos[slot] / count;
    }
    return mean;
}

Triple selectionCentre(const Geoset& geoset) {
    return {selectionCentre(geoset, Axis::X), selectionCentre(geoset, Axis::Y),
            selectionCentre(geoset, Axis::Z)};
}

void selectAll(Geoset& geoset) {
    for (VertexRecord& vertex : geoset.Vertices) vertex.selected = true;
}

void invertSelection(Geoset& geoset) {
    for (VertexRecord& vertex : geoset.Vertices) vertex.selected = !vertex.selected;
}

void expandSelection(Geoset& geoset) {
    // Each face joins its corners; what is joined to a selected vertex becomes selected.
    std::vector<std::size_t> parent(geoset.Vertices.size());
    std::iota(parent.begin(), parent.end(), std::size_t{0});
    const auto root = [&](std::size_t vertex) {
        while (parent[vertex] != vertex) vertex = parent[vertex] = parent[parent[vertex]];
        return vertex;
    };
    for (const FaceRecord& face : geoset.Faces) {
        const std::size_t first = root(static_cast<std::size_t>(face.corner[0]));
        parent[root(static_cast<std::size_t>(face.corner[1]))] = first;
        parent[root(static_cast<std::size_t>(face.corner[2]))] = first;
    }
    std::vector<bool> reached(geoset.Vertices.size());
    for (std::size_t i = 0; i < reached.size(); ++i) {
        if (geoset.Vertices[i].selected) reached[root(i)] = true;
    }
    for (std::size_t i = 0; i < reached.size(); ++i) geoset.Vertices[i].selected = reached[root(i)];
}

void selectFrom(Geoset& geoset, std::size_t first) {
    for (std::size_t i = 0; i < geoset.Vertices.size(); ++i) {
        geoset.Vertices[i].selected = i >= first;
    }
}

}  // namespace corvane
