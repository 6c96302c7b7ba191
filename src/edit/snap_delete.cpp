#include "edit/snap_delete.h"

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

void deleteSelection(Editor& editor) {
    if (!editor.store.modelLoaded) return;
    for (VertexRecord& vertex : editor.store.Vertices) {
        if (vertex.selected) vertex.deleted = true;
    }
    pushUndo(editor, {}, {}, "Delete");
    redrawAll(editor);
}

}  // namespace corvane
