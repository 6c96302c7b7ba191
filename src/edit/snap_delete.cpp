#include "edit/snap_delete.h"

#include <algorithm>

#include "edit/clone.h"
#include "edit/selection.h"
#include "views/ortho_view.h"

namespace corvane {

void snapSelection(Editor& editor) {
    pushUndo(editor, {.keepVertices = true}, {}, "Snap");
    const Triple centre = selectionCentre(editor.store);
    for (VertexRecord& vertex : editor.store.Vertices) {
        if (vertex.selected) vertex.pos = centre;
    }
    redrawAll(editor);
}

void weldSelection(Editor& editor) {
    GeosetStore& store = editor.store;
    if (numSelVerts(store) == 0) return;
    pushUndo(editor, {.keepFaces = true, .keepVertices = true}, {}, "Weld");
    const auto survivor = std::ranges::find_if(store.Vertices, &VertexRecord::selected);
    survivor->pos = selectionCentre(store);
    const auto survivorIndex = static_cast<std::int16_t>(survivor - store.Vertices.begin());
    for (FaceRecord& face : store.Faces) {
        if (face.deleted) continue;
        for (std::int16_t& corner : face.corner) {
            if (store.vertexAt(corner).selected) corner = survivorIndex;
        }
    }
    for (VertexRecord& vertex : store.Vertices) {
        if (!vertex.selected || vertex.deleted || &vertex == &*survivor) continue;
        vertex.selected = false;
        vertex.deleted = true;
    }
    redrawAll(editor);
}

void deleteSelection(Editor& editor) {
    if (!editor.store.modelLoaded) return;
    for (VertexRecord& vertex : editor.store.Vertices) {
        if (vertex.selected) vertex.deleted = true;
    }
    pushUndo(editor, {}, {}, "Delete");
    redrawAll(editor);
}

void deleteSelectedFaces(Editor& editor) {
    pushUndo(editor, {.keepFaces = true}, {}, "Delete Face");
    for (FaceRecord& face : editor.store.Faces) {
        if (!face.deleted && hasSelectedCorners(editor.store, face)) face.deleted = true;
    }
    redrawAll(editor);
}

}  // namespace corvane
