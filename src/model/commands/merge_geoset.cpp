#include "model/commands/merge_geoset.h"

#include "edit/limits.h"
#include "editor/run_edit.h"
#include "model/commands/open_model.h"

namespace corvane {

namespace {

constexpr Step kMerge = "Merge";

// Appends a geoset, selected, to another one.
void append(Geoset& geoset, const Geoset& merged) {
    const std::size_t oldVertices = geoset.Vertices.size();
    for (VertexRecord& vertex : geoset.Vertices) vertex.selected = false;
    geoset.Vertices.insert(geoset.Vertices.end(), merged.Vertices.begin(), merged.Vertices.end());
    for (std::size_t i = oldVertices; i < geoset.Vertices.size(); ++i) {
        geoset.Vertices[i].selected = true;
        geoset.Vertices[i].fileRow = kNoRow;  // its row is in another file
        geoset.Vertices[i].regrouped = true;
    }
    geoset.Faces.reserve(geoset.Faces.size() + merged.Faces.size());
    for (FaceRecord face : merged.Faces) {
        for (std::int16_t& corner : face.corner) {
            corner = static_cast<std::int16_t>(corner + static_cast<std::int16_t>(oldVertices));
        }
        geoset.Faces.push_back(face);
    }
}

}  // namespace

void mergeGeoset(Editor& editor) {
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
    runEdit(editor, kMerge, [&](Geoset& geoset) { append(geoset, merged); });
}

}  // namespace corvane
