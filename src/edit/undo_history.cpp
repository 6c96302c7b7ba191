#include "edit/undo_history.h"

#include <algorithm>

#include "edit/transforms.h"
#include "editor.h"
#include "views/ortho_view.h"

namespace corvane {

namespace {

constexpr std::string_view kSetActiveAxes = "Set Active Axes";
constexpr std::string_view kRotate = "Rotate";

template <std::size_t N>
bool isOneOf(std::string_view name, const std::array<std::string_view, N>& names) {
    return std::ranges::find(names, name) != names.end();
}

constexpr std::array<std::string_view, 3> kSelectionSteps = {"Select All", "Invert Selection",
                                                             "Selection"};
constexpr std::array<std::string_view, 4> kVertexAndFaceSteps = {"Clone", "Weld", "Extrude",
                                                                 "Merge"};
constexpr std::array<std::string_view, 7> kVertexSteps = {
    "Align", "Set Coordinates", "Recalculate Normals", "Assign Vertex Group",
    "Snap",  "Mirror",          "Snap Normals"};

// Whether a step of that name changes what a save writes.
bool changesModel(std::string_view name) {
    return !isOneOf(name, kSelectionSteps) && name != kSetActiveAxes;
}

void restoreSelection(GeosetStore& store, const UndoRecord& step) {
    if (!step.selection) return;
    const std::size_t count = std::min(store.Vertices.size(), step.selection->size());
    for (std::size_t i = 0; i < count; ++i) store.Vertices[i].selected = (*step.selection)[i];
}

void restoreVertices(GeosetStore& store, const UndoRecord& step) {
    if (step.vertices) store.Vertices = *step.vertices;
}

void restoreFaces(GeosetStore& store, const UndoRecord& step) {
    if (step.faces) store.Faces = *step.faces;
}

Axis axisOfLetter(char letter) { return static_cast<Axis>(letter - 'x'); }

void reverse(Editor& editor, const UndoRecord& step) {
    GeosetStore& store = editor.store;
    const auto& [a, b, c] = step.numbers;
    if (isOneOf(step.name, kSelectionSteps)) {
        restoreSelection(store, step);
    } else if (step.name == "Delete") {
        for (VertexRecord& vertex : store.Vertices) {
            if (vertex.selected) vertex.deleted = false;
        }
    } else if (step.name == "Move") {
        moveSelection(editor, {-a, -b, -c}, false);
    } else if (step.name.starts_with(kRotate)) {
        double angle = -a;
        rotateSelection(editor, angle, axisOfLetter(step.name.back()), false);
    } else if (step.name == "Scale") {
        scaleSelection(editor, -a, -b, false);
    } else if (isOneOf(step.name, kVertexAndFaceSteps)) {
        restoreVertices(store, step);
        restoreFaces(store, step);
    } else if (isOneOf(step.name, kVertexSteps)) {
        restoreVertices(store, step);
    } else if (step.name == "Delete Face") {
        restoreFaces(store, step);
    } else if (step.name == kSetActiveAxes) {
        editor.modes.activeX = a == 1.0;
        editor.modes.activeY = b == 1.0;
        editor.modes.activeZ = c == 1.0;
        editor.window.updateButtons();
    }
}

}  // namespace

void pushUndo(Editor& editor, UndoCopies copies, const Triple& numbers, std::string_view name) {
    GeosetStore& store = editor.store;
    if (!store.modelLoaded) return;

    UndoRecord step;
    step.valid = true;
    step.numbers = numbers;
    step.name = name;
    if (copies.keepSelection) {
        std::vector<bool> selection(store.Vertices.size());
        for (std::size_t i = 0; i < selection.size(); ++i) {
            selection[i] = store.Vertices[i].selected;
        }
        step.selection = std::make_shared<const std::vector<bool>>(std::move(selection));
    }
    if (copies.keepVertices) {
        step.vertices = std::make_shared<const std::vector<VertexRecord>>(store.Vertices);
    }
    if (copies.keepFaces) {
        step.faces = std::make_shared<const std::vector<FaceRecord>>(store.Faces);
    }

    auto& slots = editor.undo.slots;
    std::shift_right(slots.begin(), slots.end(), 1);
    slots.front() = std::move(step);
    if (changesModel(name)) store.modified = true;
    editor.window.updateButtons();
}

void recordActiveAxes(Editor& editor) {
    if (editor.undo.slots.front().name == kSetActiveAxes) return;
    const ToolModes& modes = editor.modes;
    const auto number = [](bool active) { return active ? 1.0 : 0.0; };
    pushUndo(editor, {}, {number(modes.activeX), number(modes.activeY), number(modes.activeZ)},
             kSetActiveAxes);
}

void undoLast(Editor& editor) {
    auto& slots = editor.undo.slots;
    const UndoRecord step = slots.front();  // a copy: transforms must not see it change
    reverse(editor, step);
    if (step.valid && changesModel(step.name)) editor.store.modified = true;

    // Slot 20 keeps its record, so after nineteen undos in a row the twentieth newest step fills
    // slots 1 to 20 and is reversed again and again. What lies deeper is never reached.
    std::shift_left(slots.begin(), slots.begin() + kUndoPullSlots - 1, 1);
    slots[kUndoPullSlots - 2] = slots[kUndoPullSlots - 1];
    slots.back() = {};
    editor.window.updateButtons();
    redrawAll(editor);
}

std::string undoCaption(const UndoHistory& history) {
    const UndoRecord& newest = history.slots.front();
    return newest.valid ? "Undo " + newest.name : "Undo";
}

}  // namespace corvane
