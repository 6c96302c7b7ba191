#include "edit/commands/tools.h"

#include <optional>
#include <string>

#include "edit/deletion.h"
#include "edit/normals.h"
#include "edit/placement.h"
#include "edit/selection.h"
#include "editor/run_edit.h"

namespace corvane {

namespace {

constexpr const char* kNoModelLoaded = "No model loaded.";

double askForNumber(Editor& editor, const char* prompt) {
    while (true) {
        const std::optional<std::string> answer =
            editor.dialogs.inputBox(prompt, "Set Coordinates", "0");
        const std::optional<double> number =
            parseUserNumber(answer.value_or(""), editor.userNumbers);
        if (number) return *number;
    }
}

std::string centreText(const Editor& editor) {
    constexpr int kDecimals = 6;
    const Triple centre = selectionCentre(editor.store);
    std::string text = "{ ";
    for (std::size_t i = 0; i < kFileSlotOrder.size(); ++i) {
        if (i > 0) text += ", ";
        text += formatUserNumber(roundToDecimals(centre[kFileSlotOrder[i]], kDecimals),
                                 editor.userNumbers);
    }
    return text + " }";
}

}  // namespace

int numSelVerts(const GeosetStore& store) {
    return store.modelLoaded ? countSelectedVertices(store) : 0;
}

void deleteSelection(Editor& editor) {
    if (!editor.store.modelLoaded) return;
    constexpr Step kDelete = "Delete";
    deleteSelected(editor.store);
    try {
        pushUndo(editor, kDelete);
    } catch (...) {
        endEdit(editor, kDelete.kind(), Show::ViewsThenButtons);
        throw;
    }
    endEdit(editor, kDelete.kind(), Show::ViewsThenButtons);
}

void snapNormals(Editor& editor) {
    if (numSelVerts(editor.store) == 0) return;
    const NormalSum sum = sumOfNormals(editor.store);
    if (!sum.hasDirection()) {
        const char* const reason = sum.length == 0
                                       ? "cancel each other out, so they have no common direction"
                                       : "are too large to be added up";
        editor.dialogs.messageBox(kErrorCaption,
                                  std::string("The normals of the selected vertices ") + reason +
                                      ". Nothing was changed; select fewer vertices, or "
                                      "recalculate the normals first.");
        return;
    }
    runEdit(editor, "Snap Normals", [&](Geoset& geoset) { snapNormals(geoset, sum); });
}

void setCoordinates(Editor& editor) {
    runEdit(editor, "Set Coordinates", [&](Geoset& geoset) {
        Triple place{};
        place[slotOf(Axis::X)] = askForNumber(editor, "X");
        place[slotOf(Axis::Y)] = askForNumber(editor, "Y");
        place[slotOf(Axis::Z)] = askForNumber(editor, "Z");
        placeSelected(geoset, place);
    });
}

void showVertexCount(Editor& editor) {
    editor.dialogs.messageBox(
        "Selected vertex counter",
        editor.store.modelLoaded ? std::to_string(numSelVerts(editor.store)) + " vertices selected."
                                 : kNoModelLoaded);
}

void showFaceCount(Editor& editor) {
    editor.dialogs.messageBox(
        "Selected face counter",
        editor.store.modelLoaded
            ? std::to_string(countSelectedFaces(editor.store)) + " faces selected."
            : kNoModelLoaded);
}

void viewCentreOfMass(Editor& editor) {
    constexpr const char* kCaption = "Center of mass";
    if (!editor.store.modelLoaded) {
        editor.dialogs.messageBox(kCaption, kNoModelLoaded);
        return;
    }
    if (numSelVerts(editor.store) == 0) {
        editor.dialogs.messageBox(kErrorCaption, "No vertices selected,");
        return;
    }
    editor.dialogs.inputBox("Center of mass:", kCaption, centreText(editor));
}

void copyCentreOfMass(Editor& editor) {
    if (numSelVerts(editor.store) > 0) editor.window.copyText(centreText(editor));
}

}  // namespace corvane
