#include "model/merge_geoset.h"

#include "edit/clone.h"
#include "edit/undo_history.h"
#include "model/open_model.h"
#include "views/ortho_view.h"

namespace corvane {

namespace {

void pushMergeStep(Editor& editor) {
    pushUndo(editor, {.keepFaces = true, .keepVertices = true}, {}, "Merge");
}

}  // namespace

void mergeGeoset(Editor& editor) {
    const OpenOutcome outcome = openModel(editor, false);
    if (outcome.cancelled) {
        // The step is there, and changes nothing.
        const bool modified = editor.store.modified;
        pushMergeStep(editor);
        editor.store.modified = modified;
    }
    if (!outcome.picked) return;
    if (outcome.picked->geosetCount == 0) {
        editor.dialogs.messageBox(kErrorCaption,
                                  "That file holds no geoset (no line \"Geoset {\")."
                                  " Nothing was merged.");
        return;
    }

    GeosetStore& store = editor.store;
    const Geoset& merged = outcome.picked->geoset;
    const std::size_t oldVertices = store.Vertices.size();
    if (!fitsLimits(editor, "The merged geoset", merged.Vertices.size(), merged.Faces.size())) {
        return;
    }

    pushMergeStep(editor);
    for (VertexRecord& vertex : store.Vertices) vertex.selected = false;
    store.Vertices.insert(store.Vertices.end(), merged.Vertices.begin(), merged.Vertices.end());
    for (std::size_t i = oldVertices; i < store.Vertices.size(); ++i) {
        store.Vertices[i].selected = true;
        store.Vertices[i].fileRow = kNoRow;  // its row is in another file
    }
    store.Faces.reserve(store.Faces.size() + merged.Faces.size());
    for (FaceRecord face : merged.Faces) {
        for (std::int16_t& corner : face.corner) {
            corner = static_cast<std::int16_t>(corner + static_cast<std::int16_t>(oldVertices));
        }
        store.Faces.push_back(face);
    }
    redrawAll(editor);
}

}  // namespace corvane
