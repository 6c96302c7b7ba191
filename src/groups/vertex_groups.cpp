#include "groups/vertex_groups.h"

#include <algorithm>
#include <vector>

#include "groups/group_number.h"
#include "views/ortho_view.h"

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

void assignVertexGroup(Editor& editor) {
    std::optional<std::int16_t> group;
    while (!group) {
        const std::optional<std::string> answer =
            editor.dialogs.inputBox("Vertex group", "Assign Vertex Group", "0");
        if (!answer || answer->empty()) return;
        group = toInt16(*answer, editor.userNumbers);
    }
    pushUndo(editor, {.keepVertices = true}, {}, "Assign Vertex Group");
    for (VertexRecord& vertex : editor.store.Vertices) {
        if (vertex.selected) vertex.group = *group;
    }
}

void selectByVertexGroup(Editor& editor) {
    std::optional<std::int16_t> group;
    while (!group) {
        const std::optional<std::string> answer =
            editor.dialogs.inputBox("Vertex group to select", "Select by Vertex Group", "");
        if (!answer) return;
        group = toInt16(*answer, editor.userNumbers);
    }
    const SelectMode mode = editor.modes.selectMode;
    for (VertexRecord& vertex : editor.store.Vertices) {
        if (mode == SelectMode::Select) vertex.selected = false;
        if (!vertex.deleted && vertex.group == *group) {
            vertex.selected = mode != SelectMode::Deselect;
        }
    }
    redrawAll(editor);
}

void showVertexGroups(Editor& editor) {
    constexpr const char* kCaption = "Vertex groups";
    // The marker stands in the list until the first group takes its place; a group of that number
    // is not told from it.
    std::vector<std::int16_t> groups = {kNoGroupFound};
    std::size_t count = 0;
    for (const VertexRecord& vertex : editor.store.Vertices) {
        if (!vertex.selected || std::ranges::find(groups, vertex.group) != groups.end()) continue;
        groups.resize(++count);
        groups.back() = vertex.group;
    }
    std::ranges::sort(groups);
    if (groups.front() == kNoGroupFound) {
        editor.dialogs.messageBox(kCaption, "No vertex groups in selection");
        return;
    }
    editor.dialogs.messageBox(kCaption, "Vertex group(s) " + listText(groups) + " were selected.");
}

}  // namespace corvane
