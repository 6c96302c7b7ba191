#include "editor/keep_unsaved.h"

namespace corvane {

void keepUnsaved(Editor& editor, KeptBecause because) {
    if (editor.store.isModified()) keepGeoset(editor, because);
}

void keepGeoset(Editor& editor, KeptBecause because) {
    if (editor.wayBack == nullptr || !editor.store.modelLoaded) return;
    editor.wayBack->keep(snapshotOf(editor.store), because);
}

}  // namespace corvane
