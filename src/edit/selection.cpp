#include "edit/selection.h"

#include <algorithm>

#include "views/ortho_view.h"

namespace corvane {

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
    return count == 0 ? 0 : sum / count;
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

}  // namespace corvane
