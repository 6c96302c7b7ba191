#include "groups/commands/group_commands.h"

#include <optional>
#include <string>
#include <vector>

#include "editor/run_edit.h"
#include "groups/group_number.h"
#include "groups/matrices.h"
#include "groups/vertex_groups.h"

namespace corvane {

namespace {

constexpr std::size_t kAskedBones = kStoredBones + 1;  // the last answer is dropped

// An answer as a whole number; a message where it is one that cannot be stored, whose range `range`
// says.
std::optional<std::int16_t> storable(Editor& editor, const std::string& answer, const char* range) {
    const std::optional<std::int16_t> number = toInt16(answer, editor.userNumbers);
    if (!number && parseUserNumber(answer, editor.userNumbers)) {
        editor.dialogs.messageBox(kErrorCaption, range);
    }
    return number;
}

constexpr const char* kGroupRange = "A vertex group is a whole number from -32768 to 32767.";
constexpr const char* kBoneRange =
    "A control bone is a whole number from -32768 to 32767, but not -1, which marks an unused row.";

// The number of a bone; nothing for an empty answer. Asks again until it is one of the two. The
// number that stands for an unused row is none: that bone, and those after it, would be lost.
std::optional<std::int16_t> askForBone(Editor& editor, std::size_t k) {
    while (true) {
        const std::optional<std::string> answer = editor.dialogs.inputBox(
            "Control bone " + std::to_string(k) + "\r\nClick cancel to stop adding control bones.",
            "New Matrix", "");
        if (!answer || answer->empty()) return std::nullopt;
        const std::optional<std::int16_t> bone = storable(editor, *answer, kBoneRange);
        if (bone && *bone != kNoMatrix) return bone;
        if (bone) editor.dialogs.messageBox(kErrorCaption, kBoneRange);
    }
}

}  // namespace

void assignVertexGroup(Editor& editor) {
    std::optional<std::int16_t> group;
    while (!group) {
        const std::optional<std::string> answer =
            editor.dialogs.inputBox("Vertex group", "Assign Vertex Group", "0");
        if (!answer || answer->empty()) return;
        group = storable(editor, *answer, kGroupRange);
    }
    // The views do not show groups.
    runEdit(
        editor, "Assign Vertex Group", [&](Geoset& geoset) { assignGroup(geoset, *group); },
        Show::Buttons);
}

void selectByVertexGroup(Editor& editor) {
    std::optional<std::int16_t> group;
    while (!group) {
        const std::optional<std::string> answer =
            editor.dialogs.inputBox("Vertex group to select", "Select by Vertex Group", "");
        if (!answer) return;
        group = storable(editor, *answer, kGroupRange);
    }
    runChange(editor, Show::Views,
              [&](Editor&) { selectGroup(editor.store, *group, editor.modes.selectMode); });
}

void showVertexGroups(Editor& editor) {
    editor.dialogs.messageBox("Vertex groups", groupsOfSelection(editor.store));
}

void viewMatrices(Editor& editor) {
    constexpr const char* kCaption = "Matrices";
    const std::vector<std::string> pages = matrixPages(editor.store);
    for (std::size_t i = 0; i + 1 < pages.size(); ++i) {
        editor.dialogs.messageBox(kCaption, pages[i] + "Next page...");
    }
    if (!pages.back().empty()) editor.dialogs.messageBox(kCaption, pages.back());
}

void addMatrix(Editor& editor) {
    if (!editor.store.modelLoaded) return;
    std::vector<std::int16_t> bones;
    while (bones.size() < kAskedBones) {
        const std::optional<std::int16_t> bone = askForBone(editor, bones.size() + 1);
        if (!bone) break;
        bones.push_back(*bone);
    }
    if (bones.empty()) return;
    runUnrecorded(editor, Show::Buttons, [&](Editor&) { appendMatrixGroup(editor.store, bones); });
}

}  // namespace corvane
