#include "edit/placement.h"

#include <cmath>

#include "edit/selection.h"
#include "views/ortho_view.h"

namespace corvane {

namespace {

double askForNumber(Editor& editor, const char* prompt) {
    while (true) {
        const std::optional<std::string> answer =
            editor.dialogs.inputBox(prompt, "Set Coordinates", "0");
        const std::optional<double> number =
            parseUserNumber(answer.value_or(""), editor.userNumbers);
        if (number) return *number;
    }
}

// The axis goes with the step, as the number of its slot.
Triple stepNumbers(Axis axis) { return {static_cast<double>(slotOf(axis)), 0, 0}; }

}  // namespace

void mirrorSelection(Editor& editor, Axis axis) {
    pushUndo(editor, {.keepVertices = true}, stepNumbers(axis), "Mirror");
    const std::size_t slot = slotOf(axis);
    const double centre = selectionCentre(editor.store, axis);
    for (VertexRecord& vertex : editor.store.Vertices) {
        if (!vertex.selected) continue;
        const double mirrored = 2 * centre - vertex.pos[slot];
        if (std::isfinite(mirrored)) vertex.pos[slot] = mirrored;
        vertex.normal[slot] = -vertex.normal[slot];
    }
    redrawAll(editor);
}

void alignSelection(Editor& editor, Axis axis) {
    if (numSelVerts(editor.store) == 0) return;
    pushUndo(editor, {.keepVertices = true}, stepNumbers(axis), "Align");
    const double centre = selectionCentre(editor.store, axis);
    for (VertexRecord& vertex : editor.store.Vertices) {
        if (vertex.selected) vertex.pos[slotOf(axis)] = centre;
    }
    redrawAll(editor);
}

void setCoordinates(Editor& editor) {
    pushUndo(editor, {.keepVertices = true}, {}, "Set Coordinates");
    const double x = askForNumber(editor, "X");
    const double y = askForNumber(editor, "Y");
    const double z = askForNumber(editor, "Z");
    for (VertexRecord& vertex : editor.store.Vertices) {
        if (vertex.selected) vertex.pos = {x, y, z};
    }
    redrawAll(editor);
}

}  // namespace corvane
