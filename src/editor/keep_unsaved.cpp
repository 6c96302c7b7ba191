#include "editor/keep_unsaved.h"

#include <utility>

namespace corvane {

namespace {

void keep(Editor& editor, KeptBecause because, bool always) {
    if (editor.wayBack == nullptr || !editor.store.modelLoaded) return;
    Snapshot snapshot = snapshotOf(editor.store);
    const bool hasTexture = editor.window.addUnsavedTexture(snapshot);
    if (!always && !hasTexture && !editor.store.isModified()) return;
    editor.wayBack->keep(std::move(snapshot), because);
    // Switching reads another geoset of the same text.
    if (always || because == KeptBecause::Switched) return;
    if (std::optional<Snapshot> removal = unsavedRemoval(editor.store)) {
        editor.wayBack->keep(*std::move(removal), because);
    }
}

}  // namespace

void keepUnsaved(Editor& editor, KeptBecause because) { keep(editor, because, false); }

void keepGeoset(Editor& editor, KeptBecause because) { keep(editor, because, true); }

}  // namespace corvane
