#include "model/commands/merge_geoset.h"

#include <new>

#include "edit/limits.h"
#include "editor/run_edit.h"
#include "model/commands/open_model.h"

namespace corvane {

namespace {

constexpr Step kMerge = "Merge";

// Appends a geoset, selected, to another one, which has room for it.
void append(Geoset& geoset, const Geoset& merged) {
    const std::size_t oldVertices = geoset.Vertices.size();
    for (VertexRecord& vertex : geoset.Vertices) vertex.selected = false;
    geoset.Vertices.insert(geoset.Vertices.end(), merged.Vertices.begin(), merged.Vertices.end());
    for (std::size_t i = oldVertices; i < geoset.Vertices.size(); ++i) {
        geoset.Vertices[i].selected = true;
        geoset.Vertices[i].fileRow = kNoRow;  // its row is in another file
        geoset.Vertices[i].regrouped = true;
    }
    for (FaceRecord face : merged.Faces) {
        for (std::int16_t& corner : face.corner) {
            corner = static_cast<std::int16_t>(corner + static_cast<std::int16_t>(oldVertices));
        }
        geoset.Faces.push_back(face);
    }
}

void askAndMerge(Editor& editor) {
    if (editor.store.modelLoaded && editor.store.base().geosets.empty()) {
        editor.dialogs.messageBox(kErrorCaption,
                                  editor.store.modelPath +
                                      " holds no geoset that another one could be merged into, and "
                                      "no save would write it. Nothing was merged. Open a model "
                                      "with a geoset first.");
        return;
    }
    const OpenOutcome outcome = openModel(editor, false);
    if (outcome.cancelled) pushUndo(editor, kMerge);  // the step is there, and changes nothing
    if (!outcome.picked) return;
    if (outcome.picked->geosetCount == 0) {
        editor.dialogs.messageBox(kErrorCaption,
                                  "That file holds no geoset (no line \"Geoset {\")."
                                  " Nothing was merged.");
        return;
    }
    const Geoset& merged = outcome.picked->geoset;
    const Growth growth = {.vertices = merged.Vertices.size(), .faces = merged.Faces.size()};
    if (!fitsLimits(editor.store, growth)) {
        editor.dialogs.messageBox(kErrorCaption,
                                  limitMessage("The merged geoset", editor.store, growth));
        return;
    }
    // So that memory cannot run out half-way.
    editor.store.Vertices.reserve(editor.store.Vertices.size() + growth.vertices);
    editor.store.Faces.reserve(editor.store.Faces.size() + growth.faces);
    runEdit(editor, kMerge, [&](Geoset& geoset) { append(geoset, merged); });
    editor.store.neutralRowsSaid = false;  // the merged vertices have none
}

}  // namespace

void mergeGeoset(Editor& editor) {
    const std::uint64_t before = editor.store.revisions.current();
    try {
        askAndMerge(editor);
    } catch (const std::bad_alloc&) {
        const bool isMerged = editor.store.revisions.current() != before;
        editor.dialogs.messageBox(
            kErrorCaption, isMerged
                               ? "The geoset was merged, but there is not enough memory to "
                                 "show all of it. Close other programs or windows."
                               : "There is not enough memory to merge that geoset. Nothing was "
                                 "merged. Close other programs or windows and try again.");
    }
}

}  // namespace corvane
