#include "edit/selection.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "edit/clone.h"
#include "views/ortho_view.h"

namespace corvane {

namespace {

constexpr const char* kNoModelLoaded = "No model loaded.";

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
    if (!store.modelLoaded) return 0;
    return static_cast<int>(std::ranges::count_if(store.Vertices, &VertexRecord::selected));
}

double selectionCentre(const GeosetStore& store, Axis axis) {
    const std::size_t slot = slotOf(axis);
    int count = 0;
    double sum = 0;
    for (const VertexRecord& vertex : store.Vertices) {
        if (!vertex.selected || vertex.deleted) continue;
        ++count;
        sum += vertex.pos[slot];
    }
    if (count == 0) return 0;
    if (std::isfinite(sum)) return sum / count;
    // So far out that the sum is no number; the mean still is one.
    double mean = 0;
    for (const VertexRecord& vertex : store.Vertices) {
        if (vertex.selected && !vertex.deleted) mean += vertex.pos[slot] / count;
    }
    return mean;
}

Triple selectionCentre(const GeosetStore& store) {
    return {selectionCentre(store, Axis::X), selectionCentre(store, Axis::Y),
            selectionCentre(store, Axis::Z)};
}

void selectAll(Editor& editor) {
    if (!editor.store.modelLoaded) return;
    pushUndo(editor, {.keepSelection = true}, {}, "Select All");
    for (VertexRecord& vertex : editor.store.Vertices) vertex.selected = true;
    redrawAll(editor);
}

void invertSelection(Editor& editor) {
    if (!editor.store.modelLoaded) return;
    pushUndo(editor, {.keepSelection = true}, {}, "Invert Selection");
    for (VertexRecord& vertex : editor.store.Vertices) vertex.selected = !vertex.selected;
    redrawAll(editor);
}

void expandSelection(Editor& editor) {
    GeosetStore& store = editor.store;
    pushUndo(editor, {.keepSelection = true}, {}, "Selection");
    // Each face joins its corners; what is joined to a selected vertex becomes selected.
    std::vector<std::size_t> parent(store.Vertices.size());
    std::iota(parent.begin(), parent.end(), std::size_t{0});
    const auto root = [&](std::size_t vertex) {
        while (parent[vertex] != vertex) vertex = parent[vertex] = parent[parent[vertex]];
        return vertex;
    };
    for (const FaceRecord& face : store.Faces) {
        const std::size_t first = root(static_cast<std::size_t>(face.corner[0]));
        parent[root(static_cast<std::size_t>(face.corner[1]))] = first;
        parent[root(static_cast<std::size_t>(face.corner[2]))] = first;
    }
    std::vector<bool> reached(store.Vertices.size());
    for (std::size_t i = 0; i < reached.size(); ++i) {
        if (store.Vertices[i].selected) reached[root(i)] = true;
    }
    for (std::size_t i = 0; i < reached.size(); ++i) store.Vertices[i].selected = reached[root(i)];
    redrawAll(editor);
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
