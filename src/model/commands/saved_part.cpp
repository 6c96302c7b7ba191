#include "model/commands/saved_part.h"

#include <utility>

#include "model/geoset_reader.h"
#include "model/row_sections.h"

namespace corvane {

SavedPart::SavedPart(const PiecedText& text) {
    const ModelText part = joinedText("", text.pieces());
    try {
        read_ = parseGeoset(part, scanGeosets(part.view()), 1);
    } catch (const ModelTextError&) {
        // Then it has no rows that could follow.
    }
}

void SavedPart::becomeCurrent(Editor& editor) && {
    GeosetStore& store = editor.store;
    store.geosetNumber = 1;
    store.matrixGroups = std::move(groups_);
    for (VertexRecord& vertex : store.Vertices) vertex.group = 0;
    takeFileData(store, std::move(read_));
    editor.undo = {};
}

}  // namespace corvane
