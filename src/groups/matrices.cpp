#include "groups/matrices.h"

#include "groups/group_number.h"

namespace corvane {

namespace {

constexpr const char* kCaption = "Matrices";
constexpr std::size_t kShownBones = 5;    // of a group
constexpr std::size_t kPageLength = 300;  // characters; a page ends with the line that passes it
constexpr std::size_t kStoredBones = 4;   // of a new group
constexpr std::size_t kAskedBones = 5;    // the answer to the last question is dropped

std::string lineOf(std::size_t index, const MatrixGroup& group) {
    std::string line = std::to_string(index) + ": " + std::to_string(group[0]);
    for (std::size_t row = 1; row < kShownBones && group[row] != kNoMatrix; ++row) {
        line += ", " + std::to_string(group[row]);
    }
    return line + "\r\n";
}

// The number of a bone; nothing for an empty answer. Asks again until it is one of the two. The
// number that stands for an unused row is none: that bone, and those after it, would be lost.
std::optional<std::int16_t> askForBone(Editor& editor, std::size_t k) {
    while (true) {
        const std::optional<std::string> answer = editor.dialogs.inputBox(
            "Control bone " + std::to_string(k) + "\r\nClick cancel to stop adding control bones.",
            "New Matrix", "");
        if (!answer || answer->empty()) return std::nullopt;
        const std::optional<std::int16_t> bone = toInt16(*answer, editor.userNumbers);
        if (bone && *bone != kNoMatrix) return bone;
    }
}

}  // namespace

void viewMatrices(Editor& editor) {
    std::string page;
    std::size_t index = 0;
    for (const MatrixGroup& group : editor.store.matrixGroups) {
        page += lineOf(index++, group);
        if (page.size() > kPageLength) {
            editor.dialogs.messageBox(kCaption, page + "Next page...");
            page.clear();
        }
    }
    if (!page.empty()) editor.dialogs.messageBox(kCaption, page);
}

void addMatrix(Editor& editor) {
    GeosetStore& store = editor.store;
    if (!store.modelLoaded) return;
    for (std::size_t k = 1; k <= kAskedBones; ++k) {
        const std::optional<std::int16_t> bone = askForBone(editor, k);
        if (!bone) break;
        if (k == 1) {
            MatrixGroup group;
            group.fill(kNoMatrix);
            store.matrixGroups.push_back(group);
            store.modified = true;
        }
        if (k <= kStoredBones) store.matrixGroups.back()[k - 1] = *bone;
    }
    editor.window.updateButtons();
}

}  // namespace corvane
