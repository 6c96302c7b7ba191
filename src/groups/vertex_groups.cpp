#include "groups/vertex_groups.h"

#include <algorithm>
#include <vector>

namespace corvane {

namespace {

constexpr std::int16_t kNoGroupFound = -2;

std::string listText(const std::vector<std::int16_t>& groups) {
    std::string text;
    std::size_t position = 0;
    for (const std::int16_t group : groups) {
        ++position;
        if (position > 1) text += position == groups.size() ? ", and " : ", ";
        text += std::to_string(group);
    }
    return text;
}

}  // namespace

void assignGroup(Geoset& geoset, std::int16_t group) {
    for (VertexRecord& vertex : geoset.Vertices) {
        if (!vertex.selected) continue;
        vertex.group = group;
        vertex.regrouped = true;
    }
}

void selectGroup(Geoset& geoset, std::int16_t group, SelectMode mode) {
    for (VertexRecord& vertex : geoset.Vertices) {
        if (mode == SelectMode::Select) vertex.selected = false;
        if (!vertex.deleted && vertex.group == group) {
            vertex.selected = mode != SelectMode::Deselect;
        }
    }
}

std::string groupsOfSelection(const Geoset& geoset) {
    // The marker stands in the list until the first group takes its place; a group of that number
    // is not told from it.
    std::vector<std::int16_t> groups = {kNoGroupFound};
    std::size_t count = 0;
    for (const VertexRecord& vertex : geoset.Vertices) {
        if (!vertex.selected || std::ranges::find(groups, vertex.group) != groups.end()) continue;
        groups.resize(++count);
        groups.back() = vertex.group;
    }
    std::ranges::sort(groups);
    if (groups.front() == kNoGroupFound) return "No vertex groups in selection";
    return "Vertex group(s) " + listText(groups) + " were selected.";
}

}  // namespace corvane
